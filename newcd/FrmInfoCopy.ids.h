// Controls of the window in which tracks are chosen and copied.
#pragma once

#define FrmInfoCopy_LabelTitrelist 2301
#define FrmInfoCopy_ListInfocopy 2302
#define FrmInfoCopy_LabelInfoCopy 2303
#define FrmInfoCopy_Progression 2304
#define FrmInfoCopy_CommandCopier 2305
#define FrmInfoCopy_ComAnnuleCopie 2306
