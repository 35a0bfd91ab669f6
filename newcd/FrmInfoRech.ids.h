// Controls of the window that shows a search's results.
#pragma once

#define FrmInfoRech_Label1_0 2101
#define FrmInfoRech_Label1_1 2102
#define FrmInfoRech_List1 2103
#define FrmInfoRech_List2 2104
#define FrmInfoRech_Label2 2105
#define FrmInfoRech_Progression 2106
#define FrmInfoRech_CommandOkannul 2107
