// The rows of the command table and of the codes' cards.
#include "commands/TabellaComandi.h"

#include <algorithm>
#include <array>

#include "cadastre/ComandiContorno.h"
#include "cadastre/Autoallestito.h"
#include "cadastre/ComandiEstratto.h"
#include "cadastre/ElaboratoPregeo.h"
#include "cadastre/LibrettoDaDisegno.h"
#include "cadastre/Pregeo.h"
#include "commands/Azioni.h"
#include "commands/Campitura.h"
#include "commands/ComandiGruppi.h"
#include "commands/Routine.h"
#include "commands/RoutineCostruzione.h"
#include "commands/RoutineModifica.h"
#include "commands/StatoComandi.h"
#include "store/TestoLavoro.h"
#include "survey/DialoghiCalcoli.h"
#include "commands/TabellaDialoghi.h"
#include "exchange/DxfDialoghi.h"
#include "exchange/DxfTestiInPunto.h"
#include "exchange/Esportazioni.h"
#include "exchange/Importatori.h"
#include "exchange/ImportaPunti.h"
#include "exchange/Incolla.h"
#include "output/FlussoStampa.h"
#include "sections/ComandiSezioni.h"
#include "sections/CopiaSezioni.h"
#include "sections/DialoghiSezioni.h"
#include "sections/ImpaginaSezioni.h"
#include "sections/ProgettoSezioni.h"
#include "terrain/ComandiTerreno.h"
#include "terrain/Curve.h"
#include "terrain/DefinizioneFalda.h"

namespace varena {

namespace {

using G = GenereComando;
constexpr int16_t P = SnapNodo;     // a command on existing points
constexpr int16_t L = SnapLibero;   // a command on a free position
constexpr int16_t V = kSnapInVigore;

constexpr VoceComando Arma(std::string_view tag, int16_t codice, std::string_view prompt, int16_t snap,
                           std::string_view dialogo, std::string_view menu, std::string_view voce,
                           std::string_view domanda = {}, std::string_view tasto = {}) {
  return {tag, G::Arma, codice, prompt, snap, dialogo, domanda, nullptr, menu, voce, tasto};
}
constexpr VoceComando Subito(std::string_view tag, void (*azione)(Sessione&), std::string_view dialogo,
                             std::string_view menu, std::string_view voce, std::string_view tasto = {}) {
  return {tag, G::Subito, 0, {}, V, dialogo, {}, azione, menu, voce, tasto};
}
constexpr VoceComando Zoom(std::string_view tag, void (*azione)(Sessione&), std::string_view menu = {},
                           std::string_view voce = {}, std::string_view tasto = {}) {
  return {tag, G::Zoom, 0, {}, V, {}, {}, azione, menu, voce, tasto};
}
constexpr VoceComando Snap(std::string_view tag, int16_t modo, std::string_view voce, std::string_view tasto = {}) {
  return {tag, G::Snap, modo, {}, V, {}, {}, nullptr, "Snap", voce, tasto};
}

// First match wins, as in the chain of comparisons this table replaces: a tag listed twice
// only ever reaches its first row.
constexpr VoceComando kTabella[] = {
    // --- Zoom: ahead of everything, the armed command goes on ---------------------------
    Zoom("ZOOM_TUTTO", AzioneZoomTutto, "Zoom", "Zoom Tutto", "Ins"),
    Zoom("T", AzioneZoomTutto),
    Zoom("0", AzioneZoomTutto),
    Zoom("ZOOM_FINESTRA", AzioneZoomFinestra, "Zoom", "Zoom Finestra"),
    Zoom("ZOOM_SPOSTA", AzioneZoomSposta, "Zoom", "Zoom Sposta"),
    Zoom("ZOOM_CENTRO", AzioneZoomCentro, "Zoom", "Zoom Centro"),
    Zoom("ZOOM_RIQUADRO", AzioneZoomRiquadro, "Zoom", "Zoom Riquadro"),
    Zoom("ZOOM_SCALA", AzioneZoomScala, "Zoom", "Zoom Scala", "Num /"),
    Zoom("/", AzioneZoomScala),
    Zoom("ZOOM_RICHIAMA_MEMO", AzioneZoomRichiama, "Zoom", "Richiama Zoom"),
    Zoom("5", AzioneZoomRichiama),
    Zoom("ZOOM_MEMORIZZA", AzioneZoomMemorizza, "Zoom", "Memorizza Zoom"),
    Zoom("ZOOM_ESTRATTO", AzioneZoomEstratto, "Zoom", "Zoom Estratto"),
    Zoom("ZOOM_SU", AzioneZoomSu, "Zoom", "Zoom Alto", "Freccia Su"),
    Zoom("8", AzioneZoomSu),
    Zoom("ZOOM_GIU", AzioneZoomGiu, "Zoom", "Zoom Basso", "Freccia Giù"),
    Zoom("2", AzioneZoomGiu),
    Zoom("ZOOM_SIN", AzioneZoomSinistra, "Zoom", "Zoom Sinistra", "Freccia Sinistra"),
    Zoom("4", AzioneZoomSinistra),
    Zoom("ZOOM_DES", AzioneZoomDestra, "Zoom", "Zoom Destro", "Freccia Destra"),
    Zoom("6", AzioneZoomDestra),
    Zoom("ZOOM_+", AzioneZoomAvanti, "Zoom", "Zoom Avanti", "Pag Su"),
    Zoom("9", AzioneZoomAvanti),
    Zoom("ZOOM_-", AzioneZoomIndietro, "Zoom", "Zoom Indietro", "Pag Giù"),
    Zoom("3", AzioneZoomIndietro),
    Zoom("ZOOM_PRECEDENTE", AzioneZoomPrecedente, "Zoom", "Zoom Precedente", "Home"),
    Zoom("7", AzioneZoomPrecedente),
    Zoom("RIDISEGNA", AzioneRidisegna, "Zoom", "Ridisegna", "Fine"),
    Zoom("1", AzioneRidisegna),
    Zoom("R", AzioneRidisegna),
    Zoom(" ", AzioneCentraPuntatore, {}, {}, "Ctrl+Spazio"),

    // --- Snap: the mode of the next click, the armed command goes on ---------------------
    Snap("SNAP_NODO", SnapNodo, "Punto Noto", "P"),
    Snap("SNAP_PIEDE", SnapPiede, "Ortogonale a ...", "O"),
    Snap("SNAP_NEQ", SnapNEQ, "Coordinate N, E, Q", "N"),
    Snap("SNAP_VICINO", SnapVicino, "Vicino a ...", "V"),
    Snap("SNAP_FINE", SnapFine, "Fine di ...", "F"),
    Snap("SNAP_CENTRO", SnapCentro, "Centro di ...", "C"),
    Snap("SNAP_QUADRANTE", SnapQuadrante, "Quadrante di ...", "Q"),
    Snap("SNAP_TANGENTE", SnapTangente, "Tangente a ...", "T"),
    Snap("SNAP_INCROCIO", SnapIncrocio, "Incrocio", "I"),
    Snap("SNAP_TESTO", SnapTesto, "Inserimento Testo", "B"),
    Snap("SNAP_POLARE", SnapPolare, "Polare", "U"),
    Snap("SNAP_APERTURA", SnapApertura, "Apertura", "A"),
    Snap("SNAP_MEDIO", SnapMedio, "Punto Medio", "M"),
    Snap("SNAP_RNEQ", SnapRNEQ, "Coordinate Relative", "R"),
    Snap("SNAP_LIBERO", SnapLibero, "Punto Libero", "L"),
    Snap("MEMO_PUNTO", SnapMemoPunto, "Memorizza Punto"),
    Snap("RICHIAMA_MEMO", SnapRichiamaMemo, "Richiama Punto Memorizzato", "H"),

    // --- Commands that arm --------------------------------------------------------------
    Arma("INFO_DISTANZA", 28, "Info Distanza - Primo Punto:", P, {}, "Info", "Distanza"),
    Arma("SPOSTA_BITMAP", 235, "Sposta Immagine - Indica Immagine :", V, {}, "Immagine", "Sposta Immagine"),
    Arma("DISEGNA_FUMETTO", 337, "Indica Punto Inserimento Fumetto :", L, "ProprietaTesto", "Disegno", "Fumetto"),
    Arma("SCALA_500", 343, {}, V, {}, "Immagine", "Scala 1:500"),
    Arma("SCALA_1000", 287, "Indica l'Immagine :", V, {}, "Immagine", "Scala 1:1000"),
    Arma("SCALA_1500", 369, {}, V, {}, "Immagine", "Scala 1:1500"),
    Arma("SCALA_2000", 257, "Indica l'Immagine :", V, {}, "Immagine", "Scala 1:2000"),
    Arma("SCALA_4000", 316, "Indica l'Immagine :", V, {}, "Immagine", "Scala 1:4000"),
    Arma("FOGLIO_INTERO1", 335, {}, V, {}, "Immagine", "Foglio Intero 1"),
    Arma("FOGLIO_INTERO2", 371, {}, V, {}, "Immagine", "Foglio Intero 2"),
    Arma("LINEA_MOSTRA_LUNGHEZZA", 339, "Indica la Linea :", V, "Imputa2", "Cambia", "Mostra Lunghezza Linea"),
    Arma("ESTRATTO_INQUADRAMENTO", 356, "Inquadramento - Sposta il Disegno", V, "SpostaInquadramento", "Catasto",
         "Inquadramento Estratto"),
    Arma("CONTORNODAPUNTOINTERNO", 431, "Indica il Punto Interno al Contorno :", L, {}, "Disegno",
         "Contorno da Punto Interno"),
    Arma("ROTOTRASLAZIONE_SELETTIVA", 192, {}, V, {}, "Cambia", "Rototraslazione Selettiva"),
    Arma("RT", 192, {}, V, {}, {}, {}),
    Arma("INQUADRA_2_PF", kCodiceInquadra2PF, "Inquadra su 2 PF - Primo PF :", P, {}, "Catasto", "Inquadra su 2 PF"),
    Arma("INVERTILINEA", 417, "Inverti Linea - Indica la Linea", V, {}, "Cambia", "Inverti Linea"),
    Arma("ESPLODILINEA", 418, "Esplodi Linea Tratteggio - Indica la Linea", V, {}, "Cambia", "Esplodi Linea"),
    Arma("SPEZZALINEAPERPUNTO", 412, "Interrompi Linea Per Punto - Indica la Linea", V, {}, "Cambia",
         "Interrompi Linea per Punto"),
    Arma("INTERROMPELINEASUPUNTO", 410, "Interrompi Linea su Punti - Indica la Linea", V, {}, "Cambia",
         "Interrompi Linea su Punti"),
    Arma("DEFINIZIONE_FALDA", 188, "Definizione Falda - Primo Punto:", P, {}, "Terreno", "Definizione Falda"),
    Arma("INVERTI_FALDE", 399, "Inverti Falde - Prima Falda:", L, {}, "Terreno", "Inverti Falde"),
    Arma("INTERSECA_FALDE", 398, "Interseca 2 Falde - Prima Falda", V, {}, "Terreno", "Interseca 2 Falde"),
    Arma("DISEGNA_LINEA_LIBERA", 2, "Disegno Linea - Dal Punto:", V, {}, "Disegno", "Linea"),
    Arma("DISEGNA_LINEA_2_P", 22, "Disegno Linea 2P - Primo Punto:", V, {}, "Disegno", "Linea 2 Punti"),
    Arma("DISEGNA_LINEA_DISCONTINUITA", 349, "Disegno Linea Discontinuità - Dal Punto:", V, {}, "Terreno",
         "Linea di Discontinuità"),
    Arma("DISEGNA_LINEA_PROIETTA", 176, "Linea Proietta - Indica Entità:", V, {}, "Disegno", "Linea Proietta"),
    Arma("DISEGNA_LINEA_PERPENDA", 175, "Disegno Perpen.. Da ...- Indica Entità:", V, {}, "Disegno",
         "Linea Perpendicolare"),
    Arma("DISEGNA_LINEA_ALLUNGA", 179, {}, V, "Imputa", "Disegno", "Allunga Linea", "Lunghezza da aggiungere :"),
    Arma("DISEGNA_LINEA_LUNGHEZZA", 177, "Linea Lunghezza - Indica Linea:", V, {}, "Disegno", "Lunghezza Linea"),
    Arma("LINEA_TRONCA", 152, {}, V, "Imputa", "Cambia", "Linea Tronca", "Lunghezza da troncare :"),
    Arma("DISEGNA_LINEA_ESTREMO", 178, "Linea Estremo - Indica Estremo Linea:", V, {}, "Disegno",
         "Linea da Estremo"),
    Arma("PUNTI_ESTREMO_LINEE", 246, {}, V, "APartireDa", "Punto", "Punti Estremo Linee"),
    Arma("VERIFICA_PARALLELE", 226, "Prima Linea :", V, {}, "Info", "Verifica Parallele"),
    Arma("RETTANGOLO", 183, "Disegno Rettangolo - Primo Punto:", V, {}, "Disegno", "Rettangolo"),
    Arma("SQUADRATO", 301, "Disegna Linea Squadrato - Primo Punto :", V, {}, "Disegno", "Squadrato"),
    Arma("ESTREMI_LINEA", 302, "Disegno Ortogonali - Indicare Linea:", V, {}, "Disegno", "Ortogonali agli Estremi"),
    Arma("ASSE_LINEA", 315, "Disegno Asse Linea - Indicare Linea:", V, {}, "Disegno", "Asse Linea"),
    Arma("CHIUDI_QUADRILATERO", 303, "Chiudi Quadrilatero - Primo Punto :", V, {}, "Disegno", "Chiudi Quadrilatero"),
    Arma("PARALLELA_PER_PUNTO", 305, "Parallelaperpunto - Indica Linea :", V, {}, "Disegno", "Parallela per Punto"),
    Arma("DISEGNA_PUNTO", 1, "Indicare la posizione del nuovo punto", L, "NuovoPunto", "Punto", "Nuovo Punto"),
    Arma("DISEGNA_CERCHIO_3_P", 132, "Cerchio Tre Punti - Indicare il Primo:", V, {}, "Disegno", "Cerchio 3 Punti"),
    Arma("DISEGNA_ARCO_3_P", 135, "Arco Tre Punti - Indicare il Primo:", V, {}, "Disegno", "Arco 3 Punti"),
    Arma("DISEGNA_TESTO", 701, "Indicare posizione inizio testo :", L, "ProprietaTesto", "Disegno", "Testo"),
    Arma("DISEGNA_PARALLELA", 136, "Disegno parallela - Indicare Entità:", V, "Imputa", "Disegno", "Parallela",
         "Distanza della Parallela :", "F4"),
    Arma("DISEGNA_CAMPITURA", 196, "Seleziona Contorno - Primo Punto", V, "Imputa2", "Disegno", "Campitura"),
    Arma("DISEGNA_TESTO_DA_APPUNTI", 207, "Indicare posizione inizio testo :", L, "ProprietaTesto", "Disegno",
         "Testo da Appunti"),
    Arma("DISEGNA_PERCORSO", 180, "Disegno Percorso - Punto Partenza:", V, {}, "Disegno", "Percorso"),
    Arma("DISEGNA_IMMAGINE", 202, "Indica Punto Inserimento Immagine :", L, "FormSelezionaImmagine", "Immagine",
         "Inserisci Immagine"),
    Arma("INFO_AREA", 27, "Seleziona Contorno - Primo Punto", V, {}, "Info", "Area"),
    Arma("POTHENOT", 211, "Snellius/Pothenot - Primo Trigonometrico :", P, "NuovoPunto", "Punto", "Pothenot"),
    Arma("DIVISIONE_AREE_2_PUNTI", 193, "Seleziona Contorno - Primo Punto", P, {}, "Info", "Divisione Aree 2 Punti"),
    Arma("DIVISIONE_AREE_ROTAZIONE", 203, "Seleziona Contorno - Primo Punto", P, {}, "Info",
         "Divisione Aree P. Rotazione"),
    Arma("FUORI_CENTRO", 212, "Fuoricentro - Punto di Appoggio :", P, {}, "Punto", "Fuoricentro"),
    Arma("TRACCIAMENTO", 290, "Tracciamento - Stazione :", P, {}, "Punto", "Tracciamento"),
    Arma("INTERSECA_DIREZIONE", 372, "Interseca Direzione - Primo Punto :", P, "NuovoPunto", "Punto",
         "Interseca Direzione"),
    Arma("CONTORNO_7", 190, "Indica Punto per Contorno 7", P, {}, "Catasto", "Contorno 7"),
    Arma("DISEGNA_SQUADRI", 230, "Disegna Squadri - Origine :", P, {}, "Catasto", "Squadro"),
    Arma("DISEGNA_COGO", 430, "Disegna Cogo - Origine :", P, {}, "Catasto", "Bilatera"),
    Arma("DISEGNA_POLIGONALE", 300, "Disegna Poligonale - Primo Vertice :", P, {}, "Catasto", "Poligonale"),
    Arma("LIVELLAZIONE_DAL_MEZZO", 298, "Livellazione Dal Mezzo - Primo Punto :", P, {}, "Catasto",
         "Livellazione Dal Mezzo"),
    Arma("LIVELLAZIONE_RAGGIANTE", 299, "Livellazione Raggiante - Stazione :", P, {}, "Catasto",
         "Livellazione Raggiante"),
    Arma("CATTURA_SPEZZATA", 368, "Indica la sezione :", V, {}, "Terreno", "Cattura Spezzata"),
    Arma("SEZIONI_CATTURA_PUNTI", 373, "Sezione - Primo Punto :", P, {}, "Terreno", "Sezioni Cattura Punti"),
    Arma("SEZIONI_QUOTA_PROGETTO", 374, "Indica la sezione :", L, {}, "Terreno", "Quota Progetto Sezione"),
    Arma("SEZIONI_CONFIGURA", 375, "Indica la sezione :", L, {}, "Terreno", "Configura Sezioni / Profili"),
    Arma("SEZIONI_EDITA_PUNTI", 376, "Indica la sezione :", L, {}, "Terreno", "Edita Punti Sezione"),
    Arma("SEZIONI_SOMMA", 380, "Somma Sezioni - Prima Sezione :", L, {}, "Terreno", "Somma Sezioni"),
    Arma("SEZIONI_DIVIDI", 381, "Indica la sezione :", L, {}, "Terreno", "Dividi Sezione"),
    Arma("SEZIONI_IN_SERIE", 382, "Sezioni in Serie - Primo Punto Asse :", P, {}, "Terreno", "Sezoni in Serie"),
    Arma("SEZIONI_IMPAGINA", 383, "Impagina Sezioni - Angolo in alto a sinistra del foglio :", L, {}, "Terreno",
         "Impagina Sezioni"),
    Arma("SEZIONI_COPIA_VALORI", 384, "Indica la sezione :", L, {}, "Terreno", "Copia Valori Sezione"),
    Arma("SEZIONI_COPIA_IN_FILE", 385, "Indica la sezione :", L, {}, "Terreno", "Copia Sezione in File"),
    Arma("SEZIONI_PROGETTO_PENDENZA", 386, "Indica la sezione :", L, {}, "Terreno", "Progetto in Pendenza"),
    Arma("SEZIONI_PROGETTO_PUNTO", 387, "Indica la sezione sul punto, alla quota :", L, {}, "Terreno",
         "Quota Progetto Punto"),
    Arma("SEZIONI_PROGETTO_INTERPOLA", 388, "Indica la sezione :", L, {}, "Terreno", "Interpola Progetto"),
    Arma("INCOLLA_TRATTEGGIO_SINGOLO", 306, "Cambia Tratteggio Singolo - Indica Entità :", V, {}, "Cambia",
         "Tratteggio Singolo"),
    Arma("INCOLLA_PIANO", 163, {}, V, {}, "Cambia", "Incolla Piano"),
    Arma("INCOLLA_DESCRIZIONE", 131, "Indica il Punto", P, {}, "Punto", "Incolla Descrizione"),
    Arma("ROTAZIONE_VERTICALE", 276, "Rotazione Verticale - Primo Punto:", P, {}, "Cambia", "Rotazione Verticale"),
    Arma("RIBALTAMENTO", 415, "Ribaltamento - Primo Punto:", P, {}, "Cambia", "Ribaltamento"),
    Arma("EDIT_MODIFICA", 173, "Edit Modifica - Indica il Punto:", P, {}, "Edit", "Modifica"),
    Arma("EDIT_CAMBIA_NOME", 266, "Edit Cambia Nome - Indica il Punto :", P, {}, "Edit", "Cambia Nome"),
    Arma("EDIT_SPOSTA_NOME", 24, "Nome Sposta - Indicare il Punto :", P, {}, "Edit", "Sposta Nome"),
    Arma("EDIT_SPOSTAPUNTO", 191, "Sposta Punto - Indicare il Punto :", P, {}, "Edit", "Sposta Punto"),
    Arma("PUNTO_DISTANZA", 601, "Punto Distanza - Primo Punto:", P, "NuovoPunto", "Punto", "Punto Distanza"),
    Arma("INFO_DISTANZA_2P", 249, "Info Distanza 2P - Primo Punto:", V, {}, "Info", "Distanza 2 Punti"),
    Arma("PUNTO_PARALLELA", 251, "Punto Parallela - Primo Punto:", P, {}, "Punto", "Punto Parallela"),
    Arma("CAMBIA_SCONGELA", 141, {}, V, {}, "Cambia", "Scongela"),
    Arma("CAMBIA_CONGELA", 140, {}, V, {}, "Cambia", "Congela"),
    Arma("CAMBIA_PIANO", 163, {}, V, "MenuPiani", "Cambia", "Piano"),
    Arma("CAMBIA_TRATTEGGIO", 148, {}, V, "MenuTratteggi", "Cambia", "Tratteggio"),
    Arma("CAMBIA_SCALA", 144, {}, V, {}, "Cambia", "Scala"),
    Arma("CAMBIA_SPECCHIO", 147, {}, V, {}, "Cambia", "Specchio"),
    Arma("CAMBIA_RUOTA", 146, {}, V, {}, "Cambia", "Ruota"),
    Arma("CAMBIA_ALLINEA", 414, {}, V, {}, "Cambia", "Allinea"),
    Arma("CAMBIA_SPOSTA", 143, {}, V, {}, "Cambia", "Sposta"),
    Arma("CAMBIA_COPIA", 142, {}, V, {}, "Cambia", "Copia"),
    Arma("CAMBIA_TAGLIA", 166, "Cambia Taglia - Entità Riferimento:", V, {}, "Cambia", "Taglia"),
    Arma("CAMBIA_ALLUNGA", 167, "Cambia Allunga - Entità Riferimento:", V, {}, "Cambia", "Allunga"),
    Arma("CAMBIA_RIFILA", 165, "Cambia Rifila - Prima Entita:", V, {}, "Cambia", "Rifila"),
    Arma("CAMBIA_DIVIDE", 168, "Cambia Divide - Entità da Dividere:", V, {}, "Cambia", "Divide"),
    Arma("CAMBIA_ELIMINA", 138, {}, V, {}, "Cambia", "Elimina"),
    Arma("CAMBIA_COLORE_DEFAULT", 139, {}, V, "FormSelezColore", "Cambia", "Colore"),
    Arma("COPIA_IN_FILE", 215, {}, V, "Selezentita", "File", "Copia in File"),
    Arma("ZOOM_CENTRO_DI", 217, "Seleziona Contorno - Primo Punto", V, {}, "Zoom", "Zoom Centro di Contorno"),
    Arma("ARCO_CENTRO_INIZIO_FINE", 137, "Arco Due Punti - Centro Arco:", V, {}, "Disegno", "Arco Centro Inizio Fine"),
    Arma("CERCHIO_CENTRO_RAGGIO", 134, "Cerchio Centro Raggio - Indicare il Primo:", V, "Imputa", "Disegno",
         "Cerchio Centro Raggio", "Raggio del Cerchio :"),
    Arma("X", 218, {}, V, {}, {}, {}),
    Arma("G", 196, "Seleziona Contorno - Primo Punto", V, "Imputa2", {}, {}),
    // The edit commands that the menus reach under names of their own.
    Arma("CAMBIA_COLORE", 139, {}, V, {}, "Cambia", "Colore Corrente"),
    Arma("CAMBIA_QUOTA", 216, {}, V, {}, "Cambia", "Quota"),
    Arma("ESPORTA_SELEZIONE", 218, {}, V, {}, "File", "Copia Comandi Per Cad."),
    Arma("INCOLLA_COLORE_SINGOLO", 307, "Cambia Colore Singolo - Indica Entità :", V, {}, "Cambia", "Colore Singolo"),
    Arma("INCOLLA_PIANO_SINGOLO", 308, "Cambia Piano Singolo - Indica Entità :", V, {}, "Cambia", "Piano Singolo"),
    Arma("EDIT_ENTITA", 157, "Edit Entità - Indica Entità :", V, {}, "Edit", "Modifica Entità"),
    // Commands of these routines that the menus reach under names of their own.
    Arma("NOME_SCAMBIO", 23, "Nome Scambio - Primo Punto:", P, {}, "Edit", "Scambia Nomi"),
    Arma("INFO_ANGOLO", 213, "Info Angolo - Vertice Angolo :", V, {}, "Info", "Angolo"),
    Arma("ORIGINE_FOGLIO", 254, "Indica l'Origine del Foglio :", L, {}, "File", "Origine del Foglio"),
    Arma("COPIA_QUOTA", 320, "Copia Quota - Indica il Punto :", P, {}, "Punto", "Copia Quota"),
    Arma("PUNTO_VERTICE", 377, "Punto Vertice <PV> - Indica il Punto :", P, {}, "Punto", "Punto Vertice"),
    Arma("PUNTO_DIREZIONE", 378, "Punto Direzione <PD> - Indica il Punto :", P, {}, "Punto", "Punto Direzione"),
    Arma("IMMAGINE_IN_CIMA", 336, "Indica l'Immagine :", V, {}, "Immagine", "Immagine in Primo Piano"),
    // The drawing commands that have no tag of their own in the toolbars.
    Arma("CERCHIO_CENTRO_TANGENTE", 133, "Cerchio Centro Tangente - Centro Cerchio:", V, {}, "Disegno",
         "Cerchio Centro Tangente"),
    Arma("CERCHIO_DIAMETRO", 145, "Cerchio Diametro - Primo Punto:", V, {}, "Disegno", "Cerchio Diametro"),
    Arma("CERCHIO_INSCRITTO", 181, "Cerchio Inscritto - Primo Punto:", V, {}, "Disegno", "Cerchio Inscritto"),
    Arma("ARCO_IN_CERCHIO", 182, "Arco In Cerchio - Indicare un Arco:", V, {}, "Disegno", "Arco in Cerchio"),
    Arma("ARCO_RACCORDO", 209, "Arco Raccorda - Prima Linea:", V, "Imputa", "Disegno", "Arco Raccordo",
         "Raggio di Raccordo :"),
    Arma("SERIE_LINEARE", 184, "Serie Lineare - Primo Punto:", V, "ParametriSerie", "Disegno", "Serie Lineare"),
    Arma("SERIE_ALLINEATA", 185, "Serie Allineata - Primo Punto:", V, "ParametriSerie", "Disegno", "Serie Allineata"),
    Arma("SERIE_CIRCOLARE", 186, "Serie Circolare - Centro Serie:", V, "ParametriSerie", "Disegno", "Serie Circolare"),
    Arma("SERIE_RETTANGOLARE", 187, "Serie Rettangolare - Primo Punto:", V, "ParametriSerie", "Disegno",
         "Serie Rettangolare"),
    Arma("DISEGNA_TESTO_DA_FILE", 197, "Indicare posizione inizio testo :", L, "ProprietaTesto", "Disegno",
         "Testo da File"),
    Arma("TESTO_DISTANZA", 198, "Testo Distanza - Dal Punto :", V, "ProprietaTesto", "Disegno", "Testo Distanza"),
    Arma("QUOTATURA_PROGRESSIVA", 199, "Quotatura Progressiva - Origine :", V, "ProprietaTesto", "Disegno",
         "Quotatura Progressiva"),
    Arma("TESTO_ALLINEA", 220, "Allinea Testo - Indica il Testo", V, {}, "Disegno", "Allinea Testo"),
    // The point constructions: each point made goes through the new-point dialog.
    Arma("PUNTO_BILATERA", 160, "Punto Bilatera - Primo Punto:", P, "NuovoPunto", "Punto", "Punto Bilatera"),
    Arma("PUNTO_STAZIONE_LIBERA", 332, "Punto StazioneLibera - Primo Punto:", P, "NuovoPunto", "Punto",
         "Punto Stazione Libera"),
    Arma("PUNTO_PIEDE", 26, "Punto Piede - Primo Punto :", P, "NuovoPunto", "Punto", "Punto Piede"),
    Arma("PUNTO_APERTURA", 158, "Punto Apertura - Punto Origine :", P, "NuovoPunto", "Punto", "Punto Apertura"),
    Arma("PUNTO_SQUADRO", 161, "Punto Squadro - Punto Origine :", P, "NuovoPunto", "Punto", "Punto Squadro"),
    Arma("IRRAGGIAMENTO", 170, "Irraggiamento - Punto di Stazione:", P, "NuovoPunto", "Punto", "Irraggiamento"),
    Arma("PUNTO_INCROCIO", 164, "Punto Incrocio - Primo Punto:", P, "NuovoPunto", "Punto", "Punto Incrocio"),
    Arma("PUNTO_MEDIO", 159, "Punto Medio - Primo Punto:", P, "NuovoPunto", "Punto", "Punto Medio"),
    Arma("PUNTO_IN_AVANTI", 172, "Punto In Avanti - Primo Punto:", P, "NuovoPunto", "Punto", "Punto In Avanti"),
    Arma("PUNTO_TANGENTE", 171, "Punto Tangente - Dal Punto:", P, "NuovoPunto", "Punto", "Punto Tangente"),
    Arma("POLARI_CARTESIANE", 169, "Polari Cartesiane - Indica un Punto", P, "NuovoPunto", "Punto",
         "Polari > Cartesiane"),
    // Codes reached only from another command.
    Arma({}, 321, {}, P, {}, {}, {}),
    Arma({}, 219, "Indicare il Punto da memorizzare :", V, {}, {}, {}),

    // --- Tags that act at once ----------------------------------------------------------
    Subito("CONFIGURAZIONE", nullptr, "Configurazione", "File", "Configurazione"),
    Subito("U", nullptr, "Configurazione", {}, {}),
    Subito("EDIT_CONFIGURA_TUTTO", nullptr, "FormConfiguraTutto", "Edit", "Configura Tutto"),
    Subito("FINE_CONTORNO", nullptr, "ContornoSette", {}, {}),
    Subito("GENERA_AUTOALLESTITO", AzioneAutoallestito, {}, "Catasto", "Genera Autoallestito"),
    Subito("ESPLODI_ESTRATTO", AzioneEsplodiEstratto, {}, "Catasto", "Esplodi Estratto"),
    Subito("ESTRATTI_DI_MAPPA", AzioneLanciaEstratto, {}, "Catasto", "Estratti di Mappa"),
    Subito("SCALA_MAPPA", nullptr, {}, "Catasto", "Scala Mappa"),
    Subito("CONFIGURA_ESTRATTO", AzioneConfiguraEstratto, {}, "Catasto", "Configura Estratto"),
    Subito("COLORE_ESTRATTO", AzioneColoreEstratto, {}, "Catasto", "Colore Estratto"),
    Subito("ASSOCIA_ESTRATTO", AzioneAssociaEstratto, {}, "Catasto", "Associa Estratto"),
    Subito("CONGELA_ESTRATTO", AzioneCongelaEstratto, {}, "Catasto", "Congela Estratto"),
    Subito("SCONGELA_ESTRATTO", AzioneScongelaEstratto, {}, "Catasto", "Scongela Estratto"),
    Subito("PREGEO", AzionePregeo, {}, "Catasto", "Pregeo"),
    Subito("TRIANGOLI", nullptr, "Triangoli", "Strumenti", "Triangoli"),
    Subito("GESTIONE_PIANI", nullptr, "GestionePiani", "Visualizza", "Gestione Piani"),
    Subito("MENU_PIANI", nullptr, "MenuPiani", "Visualizza", "Piani", "F7"),
    Subito("MENU_TRATTEGGI", nullptr, "MenuTratteggi", "Visualizza", "Tratteggi", "F6"),
    Subito("MENU_DESCRIZIONI", nullptr, "VR_Codici", "Visualizza", "Descrizioni", "F5"),
    Subito("SALVA_CON_NOME", AzioneSalvaConNome, {}, "File", "Salva con Nome"),
    Subito("SALVA_VELOCE", AzioneSalva, {}, "File", "Salva", "F12"),
    Subito("NUOVO_VUOTO", AzioneNuovoVuoto, {}, "File", "Nuovo"),
    Subito("APRI_ESISTENTE", nullptr, {}, "File", "Apri"),
    Subito("APRI_DA_ARCHIVIO", nullptr, {}, "File", "Apri da Archivio"),
    Subito("CARDI", nullptr, {}, "File", "Apri Lavoro VR2000 / VR2016"),
    Subito("RIAPRI_DISEGNO", nullptr, {}, "File", "Riapri"),
    Subito("GESTIONE_DISEGNI", nullptr, {}, "File", "Gestione Disegni"),
    Subito("ANNULLA", AzioneAnnulla, {}, "Edit", "Annulla", "F9"),
    Subito("REDO", AzioneRipristina, {}, "Edit", "Ripristina", "F10"),
    Subito("RIGENERA", AzioneInterrompi, {}, "Zoom", "Rigenera"),
    Subito("INTERROMPI_COMANDO", AzioneInterrompi, {}, "Edit", "Interrompi Comando", "Esc"),
    Subito("INCOLLA_DA_FILE", AzioneIncollaDaFile, {}, "File", "Incolla da File"),
    Subito("DACAD", DaCad, {}, "File", "Importa Comandi da CAD"),
    Subito("INCOLLAPUNTIDAEXCEL", IncollaDaTabella, {}, "File", "Importa Disegno da Tabella"),
    Subito("ESPORTAXYZ", OuXYZ, {}, "File", "Esporta XYZ"),
    Subito("ESPORTAINCSV", OuCSV1, {}, "File", "Esporta CSV"),
    Subito("ESPORTAINRAW", OuRAW, {}, "File", "Esporta RAW"),
    Subito("ESPORTAINCSV1", EsportaCsvDisegno, {}, "File", "Esporta CSV Disegno"),
    Subito("ESPORTAINSCRIPT", EsportaScript, {}, "File", "Esporta SCR"),
    Subito("GENERAPUNTIRIL", GeneraPuntiRilDisegno, {}, "File", "Esporta RIL"),
    Subito("ANTEPRIMA_STAMPA", AnteprimaStampa, {}, "File", "Anteprima di Stampa"),
    Subito("SPESSORI_STAMPA", nullptr, "FormSelezSpessore", "File", "Spessori di stampa"),
    Subito("ANTEPRIMA_FOGLIO", AzioneAnteprimaFoglio, {}, "File", "Anteprima Foglio"),
    Subito("CATTURA_SCHERMO", AzioneProgrammaEsterno, {}, "Strumenti", "Cattura Schermo"),
    Subito("CALCOLATRICE", AzioneProgrammaEsterno, {}, "Strumenti", "Calcolatrice"),
    Subito("SELEZIONA_COLORE", nullptr, {}, {}, {}),
    Subito("H_PRIS_STAZ", nullptr, "H_PRIS_STAZ", "Punto", "Altezze Stazione e Prisma"),
    Subito("HPS_DA_LIBRETTO", AzioneHPSDaLibretto, {}, "Catasto", "HP/HS da Libretto"),
    Subito("DISEGNO_DA_LIBRETTO", AzioneDisegnoDaLibretto, {}, "Catasto", "Disegno da Libretto"),
    Subito("SELEZIONA_CONTORNO_7", nullptr, "SelezionaContorno7", "Catasto", "Seleziona Contorno 7"),
    Subito("ELIMINA_CONTORNI_7", AzioneEliminaStrutture, {}, "Catasto", "Elimina Contorni 7"),
    Subito("ELIMINA_SQUADRI", AzioneEliminaStrutture, {}, "Catasto", "Elimina Squadri"),
    Subito("ELIMINA_LIVELLAZIONI", AzioneEliminaStrutture, {}, "Catasto", "Elimina Livellazioni"),
    Subito("ELIMINA_PV_PD", AzioneEliminaStrutture, {}, "Catasto", "Elimina PV PD"),
    Subito("ASSEGNA_COLORI_PREGEO", nullptr, {}, "Catasto", "Colori Pregeo"),
    Subito("LIBRETTO_DA_DISEGNO", AzioneLibrettoDaDisegno, {}, "Catasto", "Libretto da Disegno"),
    Subito("LIBRETTO_MISURE", nullptr, "LibrettoMisure", "Catasto", "Libretto delle Misure"),
    Subito("H", nullptr, "LibrettoMisure", {}, {}),
    Subito("IMPORTA_DA_PREGEO", AzioneDaPregeo, {}, "Catasto", "Importa da Pregeo"),
    Subito("SCHEMA_DA_LIBRETTO", AzioneSchemaDaLibretto, {}, "Catasto", "Schema da Libretto"),
    Subito("INFO_MISURATE", AzioneInfoMisurate, {}, "Info", "Misurate"),
    Subito("MISURATE_DA_STAZIONE", AzioneMisurateDaStazione, {}, "Catasto", "Misurate da Stazione"),
    Subito("CONVERTE_CAT_FIS", nullptr, {}, "Catasto", "Converti Catastale Fiscale"),
    Subito("LISTA_ENTITA", nullptr, "ElencoEntita", "Info", "Lista Entità"),
    Subito("CONGELA_SCONGELA_SIMBOLI", nullptr, "CongelaSimboli", "Visualizza", "Congela Simboli"),
    Subito("FONT_DEFAULT", nullptr, "FormFont", "Visualizza", "Carattere"),
    Subito("TUTTI", nullptr, "FormTutti", "Visualizza", "Tutti"),
    Subito("GESTIONE_GRUPPI", nullptr, "GestioneGruppi", "Disegno", "Gruppi"),
    // The steps of the groups, armed from their dialog, which names the group.
    Arma("GRUPPO_NUOVO", 259, "Nuovo Gruppo - Punto di Inserimento :", L, {}, {}, {}),
    Arma("GRUPPO_SELEZIONA", 265, "Nuovo Gruppo - Seleziona Entità :", V, {}, {}, {}),
    Arma("GRUPPO_INCOLLA", 260, "Incolla Gruppo - Punto di Inserimento :", L, {}, {}, {}),
    Arma("SIMBOLO_NUOVO", 256, {}, L, {}, "Punto", "Nuovo Simbolo"),
    Subito("ESPORTA_DXF", nullptr, "EsportaDxf", "File", "Esporta DXF"),
    Subito("CARICA_DXF", CaricaDXF, {}, "File", "Importa DXF"),
    Subito("CARICA_CXF", AzioneCaricaCxf, {}, "File", "Importa CXF"),
    Subito("CARICA_TAF", AzioneCaricaTaf, {}, "File", "Importa TAF"),
    Subito("CARICA_DAT", AzioneCaricaDAT, {}, "Catasto", "Proposta da File DAT"),
    Subito("PROPOSTA_DA_PREGEO", AzionePropostaDaPregeo, {}, "Catasto", "Proposta da Pregeo"),
    Subito("IMPORTA_MODULISTICA", AzioneModulistica, {}, "Catasto", "Importa Modulistica PDF"),
    Subito("IMPORTA_ELABORAZIONE_PREGEO", AzioneElaborazionePregeo, {}, "Catasto", "Importa Elaborazione Pregeo"),
    Subito("IMPORTA_ELABORA_DAT_PREGEO", AzioneImportaElaboraDat, {}, "Catasto", "Importa Elaborazione da DAT"),
    Subito("CALCOLO_GPS", AzioneCalcoloGPS, {}, "Catasto", "Calcolo locale GPS"),
    Subito("INQUADRA_N_PF", nullptr, "FormInquadraPF", "Catasto", "Inquadra su n PF"),
    Subito("SETUP_INQUADRAMENTO", nullptr, "SetupInquadramento", "Catasto", "Setup Inquadramento"),
    Subito("CARICA_PUNTI_RIL", CaricaPuntiRil, {}, "File", "Importa Punti RIL"),
    Subito("CARICA_PUNTI_SHO", CaricaPuntiSHO, {}, "File", "Importa Punti SHO"),
    Subito("CARICA_PUNTI_GSI", CaricaPuntiGSI, {}, "File", "Importa Punti GSI"),
    Subito("CARICA_PUNTI_ASC", CaricaPuntiASC, {}, "File", "Importa Punti ASC"),
    Subito("CARICA_PUNTI_TXT", CaricaPuntiCXF, {}, "File", "Importa Punti da Testo"),
    Subito("IMPORTA_NUVOLA", ImportaNuvola, {}, "File", "Importa Nuvola di Punti"),
    Subito("CARICA_VR4", CaricaVR4, {}, "File", "Importa Punti VR4"),
    Subito("IMPORTA_XVR", AzioneImportaXvr, {}, "File", "Importa XVR"),
    Arma("TESTO_IN_PUNTO", 397, "Testo in Punto - Testo :", L, "FormTestoInPunto", "File", "Testo in Punto"),
    Subito("INFO_ELENCO_PUNTI_TUTTI", nullptr, "ElencoPunti", "Info", "Elenco Punti"),
    Subito("ALTEZZA_NOME", nullptr, "DN", "Punto", "Altezza Nome"),
    Subito("ALTEZZA_QUOTA", nullptr, "DN", "Punto", "Altezza Quota"),
    Subito("ALTEZZA_DESCRIZIONE", nullptr, "DN", "Punto", "Altezza Descrizione"),
    Subito("ALTEZZA_SIMBOLO", nullptr, "DN", "Punto", "Altezza Simbolo"),
    Subito("DN+", AzionePassoDimensioni, {}, "Punto", "Nomi più grandi"),
    Subito("DN-", AzionePassoDimensioni, {}, "Punto", "Nomi più piccoli"),
    Subito("DS+", AzionePassoDimensioni, {}, "Punto", "Simboli più grandi"),
    Subito("DS-", AzionePassoDimensioni, {}, "Punto", "Simboli più piccoli"),
    Subito("GESTIONE_SIMBOLI", nullptr, "MenuSimboli", "Punto", "Simboli"),
    Subito("INCOLLA_SIMBOLO", AzioneSelezPunti, {}, "Punto", "Incolla Simbolo"),
    Subito("PUNTO_ELIMINA", AzioneSelezPunti, {}, "Punto", "Elimina Punti"),
    Subito("SELEZIONA_TRIANGOLA", AzioneSelezPunti, {}, "Terreno", "Triangola Punti"),
    Subito("TRIANGOLA_AGGIUNGI", AzioneSelezPunti, {}, "Terreno", "Triangola Punti Aggiungendo Falde"),
    Subito("TRIPF", AzioneTRIPF, {}, "Terreno", "Triangola Punti Fiduciali"),
    Subito("FALDE_DA_LINEE", AzioneFaldeDaLinee, {}, "Terreno", "Falde da Linee"),
    Subito("SEZIONI_APPLICA_DEFAULT", AzioneApplicaDefaultSezioni, {}, "Terreno", "Applica Default a tutte le Sezioni"),
    Subito("SEZIONI_DA_LIVELLAZIONE", AzioneSezioniDaLivellazione, {}, "Terreno", "Profili da Livellazione"),
    Subito("SEZIONI_SALVA_DEFAULT", AzioneSalvaDefaultSezioni, {}, "Terreno", "Salva Default Sezioni"),
    Subito("SEZIONI_CARICA_DEFAULT", AzioneCaricaDefaultSezioni, {}, "Terreno", "Carica Default Sezioni"),
    Subito("AGGIUNGI_FALDE_DA_LINEE", AzioneFaldeDaLinee, {}, "Terreno", "Aggiungi Falde da Linee"),
    Subito("VOLUMI_FALDE", nullptr, "VolumiFalde", "Terreno", "Volumi"),
    Subito("GENERA_CURVE", AzioneGeneraCurve, {}, "Terreno", "Curve di Livello"),
    Subito("SPLINE_CURVE", nullptr, "frmSplines", "Terreno", "Curve di Livello con Spline"),
    Subito("COLORA_CURVE", nullptr, "FormColoraCurve", "Terreno", "Colora Curve"),
    Subito("IMPOSTAZIONI_TERRENO", nullptr, "FormImpostazioniTerreno", "Terreno", "Impostazioni Terreno"),
    Subito("ESPLODI_CURVE_LIVELLO", AzioneEsplodiCurve, {}, "Terreno", "Esplodi Curve Livello"),
    Subito("ELIMINA_CURVE_ESPLOSE", AzioneEliminaCurveEsplose, {}, "Terreno", "Elimina Curve Esplose"),
    Subito("ORTOSINO", AzioneOrtogonale, {}, "Snap", "Orto SI/NO", "F8"),
    Subito("MENU_TESTO", AzioneMenu, {}, {}, {}),
    Subito("MENU_CERCHIO", AzioneMenu, {}, {}, {}),
    Subito("MENU_ARCO", AzioneMenu, {}, {}, {}),
    Subito("MENU_SIMBOLO", AzioneMenu, {}, {}, {}),
    Subito("MENU_ESTRATTO", AzioneMenu, {}, {}, {}),
    Subito("MENU_PUNTO", AzioneMenu, {}, {}, {}),
    Subito("MENU_SERIE", AzioneMenu, {}, {}, {}),
    Subito("MENU_NOME", AzioneMenu, {}, {}, {}),
    Subito("MENU_DESCRIZIONE", AzioneMenu, {}, {}, {}),
    Subito("MENU_QUOTA", AzioneMenu, {}, {}, {}),
    Subito("MENU_CONTORNI", AzioneMenu, {}, {}, {}),
    Subito("MENU_LINEA", AzioneMenu, {}, {}, {}),
    Subito("MENU_IMMAGINE", AzioneMenu, {}, {}, {}),
    Subito("MANUALE_WEB_AUTOALLESTITO", nullptr, {}, "Catasto", "Manuale Autoallestito"),
    // The letters of the command bar.
    Subito("A", AzioneVisualizza, {}, "Visualizza", "Solo PF-Stazioni SI/NO", "_A"),
    Subito("N", AzioneVisualizza, {}, "Visualizza", "Nomi Punti SI/NO", "_N"),
    Subito("S", AzioneVisualizza, {}, "Visualizza", "Simboli Punti SI/NO", "_S"),
    Subito("Q", AzioneVisualizza, {}, "Visualizza", "Quote Punti SI/NO", "_Q"),
    Subito("W", AzioneVisualizza, {}, "Visualizza", "Descrizione Punti SI/NO", "_W"),
    Subito("L", AzioneVisualizza, {}, "Visualizza", "Linee SI/NO", "_L"),
    Subito("C", AzioneMenu, {}, {}, {}),
    Subito("D", AzioneMenu, {}, {}, {}),
    Subito("E", AzioneMenu, {}, {}, {}),
    Subito("F", AzioneMenu, {}, {}, {}),
    Subito("I", AzioneMenu, {}, {}, {}),
    Subito("P", AzioneMenu, {}, {}, {}),
    Subito("Z", AzioneMenu, {}, {}, {}),
    Subito("B", nullptr, {}, {}, {}),
};

// Codes whose clicks run a routine of their own, or show a rubber band.
constexpr FormaElastico Li = FormaElastico::Linea;
constexpr SchedaCodice kSchede[] = {
    {1, DisegnoEntitaPunto, Li, nullptr},
    {2, DisegnoEntitaLinea, Li, nullptr},
    {22, DisegnoEntitaLinea, Li, nullptr},
    {349, DisegnoEntitaLinea, Li, nullptr},
    {23, subNomeScambio, Li, nullptr},
    {24, subEditNomeSposta, Li, nullptr},
    {26, subPuntoPiede, Li, nullptr},
    {27, nullptr, Li, nullptr},
    {28, subInfoDistanza, Li, nullptr},
    {249, subInfoDistanza, Li, nullptr},
    {213, subInfoAngolo, Li, nullptr},
    {254, subOrigineFoglio, FormaElastico::Nessuna, nullptr},
    {257, subScalaImmagine, FormaElastico::Nessuna, nullptr},
    {287, subScalaImmagine, FormaElastico::Nessuna, nullptr},
    {316, subScalaImmagine, FormaElastico::Nessuna, nullptr},
    {335, subScalaImmagine, FormaElastico::Nessuna, nullptr},
    {343, subScalaImmagine, FormaElastico::Nessuna, nullptr},
    {369, subScalaImmagine, FormaElastico::Nessuna, nullptr},
    {371, subScalaImmagine, FormaElastico::Nessuna, nullptr},
    {336, subImmagineInCima, FormaElastico::Nessuna, nullptr},
    {320, subCopiaQuota, FormaElastico::Nessuna, nullptr},
    {321, subIncollaQuota, FormaElastico::Nessuna, PromptIncollaQuota},
    {377, subMarcaVertice, FormaElastico::Nessuna, nullptr},
    {378, subMarcaDirezione, FormaElastico::Nessuna, nullptr},
    {219, subMemorizzaPunto, FormaElastico::Nessuna, nullptr},
    {259, subNuovoGruppo, FormaElastico::Nessuna, nullptr},
    {260, subIncollaGruppo, FormaElastico::Nessuna, nullptr},
    {256, subNuovoSimbolo, FormaElastico::Nessuna, nullptr},
    {132, subDisegnoCerchioTrePunti, FormaElastico::Cerchio3P, nullptr},
    {133, subDisegnoCerchioCentroTangente, FormaElastico::CerchioCentro, nullptr},
    {134, subDisegnoCerchioCentroRaggio, FormaElastico::CerchioRaggio, nullptr},
    {135, subDisegnoArcoTrePunti, FormaElastico::Arco3P, nullptr},
    {137, subArcoDuePunti, FormaElastico::ArcoCentro, nullptr},
    {142, subCambiaCopiaSpostaSpecchioScalaRuota, Li, nullptr},
    {143, subCambiaCopiaSpostaSpecchioScalaRuota, Li, nullptr},
    {145, subDisegnoCerchioDiametro, Li, nullptr},
    {147, subCambiaCopiaSpostaSpecchioScalaRuota, Li, nullptr},
    {144, subCambiaCopiaSpostaSpecchioScalaRuota, FormaElastico::Nessuna, nullptr},
    {146, subCambiaCopiaSpostaSpecchioScalaRuota, FormaElastico::Nessuna, nullptr},
    {192, subRotoTraslazione, Li, nullptr},
    {kCodiceInquadra2PF, subInquadraSuPF, FormaElastico::Nessuna, nullptr},
    {216, subCambiaQuota, Li, nullptr},
    {165, subCambiaRifila, FormaElastico::Nessuna, nullptr},
    {166, subCambiaTaglia, FormaElastico::Nessuna, nullptr},
    {167, subCambiaAllunga, FormaElastico::Nessuna, nullptr},
    {168, subCambiaDivide, FormaElastico::Nessuna, nullptr},
    {306, subCambiaTratteggioEntitaSingola, FormaElastico::Nessuna, nullptr},
    {307, subCambiaTratteggioEntitaSingola, FormaElastico::Nessuna, nullptr},
    {308, subCambiaTratteggioEntitaSingola, FormaElastico::Nessuna, nullptr},
    {157, subEditaEntitaComando, FormaElastico::Nessuna, nullptr},
    {155, nullptr, Li, nullptr},
    {158, subPuntoApertura, Li, nullptr},
    {159, subPuntoMedio, Li, nullptr},
    {160, subPuntoBilatera, Li, nullptr},
    {161, subPuntoSquadro, Li, nullptr},
    {164, subPuntoIncrocio, Li, nullptr},
    {169, subPolariCartesiane, FormaElastico::Nessuna, nullptr},
    {170, subPuntoIrraggiamento, Li, PromptIrraggiamento},
    {172, subPuntoInAvanti, Li, nullptr},
    {176, subLineaProietta, Li, nullptr},
    {178, subDisegnoLineaEstremo, Li, nullptr},
    {180, subDisegnoPercorso, Li, nullptr},
    {181, subDisegnoCerchioInscritto, Li, nullptr},
    {183, subRettangolo, Li, nullptr},
    {184, subSerieLineare, Li, nullptr},
    {185, subSerieAllineata, Li, nullptr},
    {186, subSerieCircolare, FormaElastico::ArcoSerie, nullptr},
    {171, subPuntoTangente, Li, nullptr},
    {191, nullptr, Li, nullptr},
    // The survey structures: a vertex a click, until the right button.
    {188, subDefinizioneFalde, FormaElastico::Linea, nullptr},
    {373, subSezioniCatturaPunti, FormaElastico::Nessuna, nullptr},
    {374, subQuotaProgettoSezione, FormaElastico::Nessuna, nullptr},
    {375, subConfiguraSezione, FormaElastico::Nessuna, nullptr},
    {376, subEditaPuntiSezione, FormaElastico::Nessuna, nullptr},
    {368, subCatturaSpezzata, FormaElastico::Nessuna, nullptr},
    {380, subSommaSezioni, FormaElastico::Nessuna, nullptr},
    {381, subDividiSezione, FormaElastico::Nessuna, nullptr},
    {382, subSezioniCatturaPunti, FormaElastico::Nessuna, nullptr},
    {383, subImpaginaSezioni, FormaElastico::Nessuna, nullptr},
    {384, subCopiaValoriSezione, FormaElastico::Nessuna, nullptr},
    {385, subCopiaSezioneInFile, FormaElastico::Nessuna, nullptr},
    {386, subProgettoPendenza, FormaElastico::Nessuna, nullptr},
    {387, subProgettoPunto, FormaElastico::Nessuna, nullptr},
    {388, subProgettoInterpola, FormaElastico::Nessuna, nullptr},
    {399, subInvertiFalde, FormaElastico::Nessuna, nullptr},
    {190, subContornoSette, FormaElastico::Nessuna, nullptr},
    {230, subContornoSette, FormaElastico::Nessuna, nullptr},
    {298, subContornoSette, FormaElastico::Nessuna, nullptr},
    {299, subContornoSette, FormaElastico::Nessuna, nullptr},
    {300, subContornoSette, FormaElastico::Nessuna, nullptr},
    {430, subContornoSette, FormaElastico::Nessuna, nullptr},
    {198, subTestodistanza, Li, nullptr},
    {199, subQuotaturaProgressiva, Li, nullptr},
    {211, subCalcolaPothenot, Li, nullptr},
    {226, subVerificaParallele, Li, nullptr},
    {251, nullptr, Li, nullptr},
    {276, subRotazioneVerticale, Li, nullptr},
    {290, subTracciamento, Li, nullptr},
    {397, subTestoInPunto, FormaElastico::Nessuna, nullptr},
    {301, subSquadrato, Li, nullptr},
    {303, nullptr, Li, nullptr},
    {332, subStazioneLibera, Li, nullptr},
    {372, subIntersecaDirezione, Li, nullptr},
    {414, subCambiaAllinea, Li, nullptr},
    {415, subRotazioneVerticale, Li, nullptr},
    {601, subPuntoDistanza, Li, nullptr},
    {136, subDisegnoParallela, FormaElastico::Nessuna, nullptr},
    {175, subDisegnoPerpenDa, FormaElastico::Nessuna, nullptr},
    {177, subLineaLunghezza, FormaElastico::Nessuna, nullptr},
    {179, subDisegnoLineaAllunga, FormaElastico::Nessuna, nullptr},
    {182, subArcoInCerchio, FormaElastico::Nessuna, nullptr},
    {187, subSerieRettangolare, Li, nullptr},
    {196, subSelezionaContorno, Li, nullptr},
    {212, subFuoriCentro, Li, nullptr},
    {193, subDivisioneAree, Li, nullptr},
    {203, subDivisioneAree, Li, nullptr},
    {197, subDisegnoTestoDaFile, FormaElastico::Nessuna, nullptr},
    {202, subDisegnaBitMap, FormaElastico::Nessuna, nullptr},
    {207, subIncollaDaAppunti, FormaElastico::Nessuna, nullptr},
    {209, subArcoRaccordo, FormaElastico::Nessuna, nullptr},
    {220, subTestoAllinea, FormaElastico::Nessuna, nullptr},
    {302, subDisegnoOrtogonali, FormaElastico::Nessuna, nullptr},
    {305, subParallelaPerPunto, FormaElastico::Nessuna, nullptr},
    {315, subDisegnoAsseLinea, FormaElastico::Nessuna, nullptr},
    {337, subDisegnaFumetto, FormaElastico::Nessuna, nullptr},
    {701, subDisegnoTesto, FormaElastico::Nessuna, nullptr},
};

}  // namespace

std::span<const VoceComando> TabellaComandi() { return kTabella; }

const VoceComando* CercaTag(std::string_view tag) {
  if (tag.empty()) return nullptr;
  for (const VoceComando& v : kTabella)
    if (v.Tag == tag) return &v;
  return nullptr;
}

const VoceComando* VocePerCodice(int32_t codice) {
  if (codice == 0) return nullptr;
  for (const VoceComando& v : kTabella)
    if (v.Genere == G::Arma && v.Codice == codice) return &v;
  return nullptr;
}

int32_t IndiceVoce(const VoceComando* voce) {
  return voce ? static_cast<int32_t>(voce - kTabella) : -1;
}

const SchedaCodice* SchedaPerCodice(int32_t codice) {
  for (const SchedaCodice& c : kSchede)
    if (c.Codice == codice) return &c;
  return nullptr;
}

bool TagEseguibile(std::string_view tag) {
  const VoceComando* v = CercaTag(tag);
  if (!v) return false;
  switch (v->Genere) {
    case G::Zoom:
    case G::Snap: return true;
    case G::Subito: return v->Azione != nullptr || (!v->Dialogo.empty() && DialogoDisponibile(v->Dialogo));
    case G::Arma: {
      // The work of a command on a selection is done at the confirmation, not by a routine of
      // its clicks: most of them have none.
      if (CodiceDiSelezione(v->Codice)) return LavoroSuSelezione(v->Codice);
      const SchedaCodice* c = SchedaPerCodice(v->Codice);
      return c && c->Routine;
    }
  }
  return false;
}

bool CodiceDiSelezione(int32_t codice) {
  static constexpr std::array<int32_t, 20> kCodici{138, 139, 140, 141, 142, 143, 144, 146, 147, 148,
                                                   163, 192, 215, 216, 218, 246, 256, 265, 327, 414};
  return std::find(kCodici.begin(), kCodici.end(), codice) != kCodici.end();
}

bool CodiceDiContorno(int32_t codice) {
  static constexpr std::array<int32_t, 12> kCodici{27, 193, 196, 200, 203, 212, 217, 225, 227, 234, 294, 312};
  return std::find(kCodici.begin(), kCodici.end(), codice) != kCodici.end();
}

}  // namespace varena
