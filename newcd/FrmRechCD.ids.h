// Controls of the window that asks for a drive.
#pragma once

#define FrmRechCD_LabelRechtitre 2001
#define FrmRechCD_FrameRech 2002
#define FrmRechCD_LabelRech 2003
#define FrmRechCD_DriveRech 2004
#define FrmRechCD_CommandOK 2005
#define FrmRechCD_CommandAnnul 2006
