// Controls of the window that asks for another file name.
#pragma once

#define FrmExisteFich_LabelExistefich 2401
#define FrmExisteFich_LabelAncien 2402
#define FrmExisteFich_TextAncienNom 2403
#define FrmExisteFich_LabelNouveauNom 2404
#define FrmExisteFich_TextNouveauNom 2405
#define FrmExisteFich_CommandOK 2406
#define FrmExisteFich_Command1 2407
