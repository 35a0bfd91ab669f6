// Controls of the audio formats window.
#pragma once

#define FrmExtension_LabelExt 1201
#define FrmExtension_Label1 1202
#define FrmExtension_ListExt 1203
#define FrmExtension_Label2 1204
#define FrmExtension_Text1 1205
#define FrmExtension_CommandAjoutExt 1206
#define FrmExtension_CommandSupprExt 1207
#define FrmExtension_CommandDefault 1208
#define FrmExtension_CommandFermExt 1209
