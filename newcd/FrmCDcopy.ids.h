// Controls of the window that sets a copy up.
#pragma once

#define FrmCDcopy_FrameSource 2201
#define FrmCDcopy_LabelSource 2202
#define FrmCDcopy_DriveSource 2203
#define FrmCDcopy_FrameDestin 2204
#define FrmCDcopy_LabelDestin 2205
#define FrmCDcopy_Drivedestin 2206
#define FrmCDcopy_DirDestin 2207
#define FrmCDcopy_LabelChemin 2208
#define FrmCDcopy_CommandDossier 2209
#define FrmCDcopy_Frame1 2210
#define FrmCDcopy_OptionCopier0 2211
#define FrmCDcopy_OptionCopier1 2212
#define FrmCDcopy_OptionCopier2 2213
#define FrmCDcopy_Frame2 2214
#define FrmCDcopy_OptionCopier3 2215
#define FrmCDcopy_OptionCopier4 2216
#define FrmCDcopy_OptionCopier5 2217
#define FrmCDcopy_FrameType 2218
#define FrmCDcopy_CommandExtMoins 2219
#define FrmCDcopy_CheckFormat0 2220
#define FrmCDcopy_CheckFormat1 2221
#define FrmCDcopy_CheckFormat2 2222
#define FrmCDcopy_CheckFormat3 2223
#define FrmCDcopy_CheckFormat4 2224
#define FrmCDcopy_CheckFormat5 2225
#define FrmCDcopy_CheckFormat6 2226
#define FrmCDcopy_CheckFormat7 2227
#define FrmCDcopy_CheckFormat8 2228
#define FrmCDcopy_CheckFormat9 2229
#define FrmCDcopy_CommandExtPlus 2230
#define FrmCDcopy_CheckRepert 2231
#define FrmCDcopy_Label1 2232
#define FrmCDcopy_TextCopy 2233
#define FrmCDcopy_ComCopierOK 2234
#define FrmCDcopy_CommandAnnuler 2235
