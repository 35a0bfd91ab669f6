// Controls of the About box.
#pragma once

#define FrmApropos_Picture1 2601
#define FrmApropos_LabelApropos0 2602
#define FrmApropos_LabelApropos1 2603
#define FrmApropos_LabelApropos2 2604
#define FrmApropos_CommandApropos 2605
