// Controls of the track information window: one array of labels, the headings before the values.
#pragma once

#define FrmInfoTitre_LabelInfoTitre1_0 1501
#define FrmInfoTitre_LabelInfoTitre1_1 1502
#define FrmInfoTitre_LabelInfoTitre1_2 1503
#define FrmInfoTitre_LabelInfoTitre1_3 1504
#define FrmInfoTitre_LabelInfoTitre1_4 1505
#define FrmInfoTitre_LabelInfoTitre1_5 1506
#define FrmInfoTitre_LabelInfoTitre1_6 1507
#define FrmInfoTitre_LabelInfoTitre1_7 1508
