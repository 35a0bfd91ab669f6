// Controls of the help window.
#pragma once

#define FrmAide_RichTextBox1 2501
#define FrmAide_AideQuit 2502
