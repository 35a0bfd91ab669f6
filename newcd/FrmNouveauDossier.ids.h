// Controls of the window that names a new folder.
#pragma once

#define FrmNouveauDossier_LabelDossier 2501
#define FrmNouveauDossier_TextDossier 2502
#define FrmNouveauDossier_CommandOK 2503
#define FrmNouveauDossier_CommandAnnuler 2504
