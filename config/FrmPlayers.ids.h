// Controls of the players window.
#pragma once

#define FrmPlayers_Label3 1401
#define FrmPlayers_Label4 1402
#define FrmPlayers_ListPlayers 1403
#define FrmPlayers_Label1 1404
#define FrmPlayers_TextNom 1405
#define FrmPlayers_Label2 1406
#define FrmPlayers_TextChemin 1407
#define FrmPlayers_Picture1 1408
#define FrmPlayers_CommandAjouter 1409
#define FrmPlayers_CommandSupprimer 1410
#define FrmPlayers_CommandOK 1411
