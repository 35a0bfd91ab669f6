// Controls of the window that adds a CD.
#pragma once

#define FrmNouveauCD_Label1 1301
#define FrmNouveauCD_FrameNom 1302
#define FrmNouveauCD_LabelNouveauNom 1303
#define FrmNouveauCD_TextNouveau 1304
#define FrmNouveauCD_FrameNouveauDrive 1305
#define FrmNouveauCD_LabelNouveauDrive 1306
#define FrmNouveauCD_DriveNouveau 1307
#define FrmNouveauCD_LabelPatientez 1308
#define FrmNouveauCD_Progression 1309
#define FrmNouveauCD_CommandNouveauOK 1310
#define FrmNouveauCD_CommandNouveauAnnuler 1311
