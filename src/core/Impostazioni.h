// The environment settings of `Configura.ini`, with their defaults.
#pragma once

#include <cstdint>
#include <string>

namespace varena {

struct Impostazioni {
  std::string NomeFileConfiguraPunti = "ConfiguraTuttiPunti";
  std::string nomefileautoallestito;
  int16_t MostraIngombroDisegno = 0;
  int16_t SalvaUnaCopiaZip = 0;
  int16_t RiapriUltimoLavoro = 0;
  int32_t MostraDescrizione = 1;
  int32_t MostraNome = 1;
  int32_t MostraQuota = 1;
  double AngoloTestoDefault = 0;
  double AltezzaTestoDefault = 5.0;
  std::string FontTestoDefault = "Arial";
  int16_t ColoreTestoDefault = 1;
  int32_t Cornice = 0;
  int32_t Trasparenza = 0;
  int32_t MenuMouse = 1;
  int32_t Puntatore = 3;
  int32_t ComandiSuSnap = 0;
  int32_t Fai_Anteprima_SiNo = 0;
  int32_t Colore_Fondo_Default = 7;
  int32_t Tratteggio_Default = 1;
  int32_t Stira_Linee = 1;
  int32_t Info_Estesa = 1;
  int32_t VISUALIZZA_SNAP = 0;
  int32_t Stampa_Scala_Plottaggio = 1;
  int32_t Stampa_Nome_Lavoro = 1;
  int32_t Colore_Default = 1;
  int32_t Azzera_Codici_Catastali = 0;
  std::string Cartella_Default;  // working root + "LAVORI", set at start
  double FATTORE_DI_ZOOM = 50;
  int32_t Icone_grandi = 0;
  int16_t INFOCOMANDI = 0;
  double Numero_Punti = 0;
  double Distanza = 0;
  double Numero_Righe = 0;
  double Numero_Colonne = 0;
  double Angolo_Campitura = 45;
  double Distanza_Campitura = 1;
  double Alfa = 0;
  double Beta = 0;
  double D1 = 1;
  double D2 = 1;
  double Ambito_Laterale = 0;
  uint8_t TIPODISTANZA = 1;
  int32_t CollegaPuntoSimbolo = 0;
  int16_t VPLOT = 0;
  int16_t TOOLTIPBELLA = 0;
  int16_t SOLOCOLORINELDISEGNO = 0;
  int16_t PNGCONG = 0;
  double DIMENSIONEUNICAPUNTO = 0;
  float LineaMostraLunghezza = 1;
  float LineaDecimali = 2;

  // The fixed folders of the Windows installation, as settings with defaults under the
  // working root: the Pregeo root ("c:\pregeo\"), its extracts ("ESTRATTI") and archive
  // ("ARCH", where the municipality file lives), and the fiducial data ("c:\fiducial\",
  // with "dati" and "modulistica" beneath). No trailing separator, as `Cartella_Default`.
  std::string Cartella_Pregeo;
  std::string Cartella_Estratti;
  std::string Cartella_Archivio_Pregeo;
  std::string Cartella_Fiducial;
  // "Salva sempre anche nella cartella": a folder that receives a copy of the job at every
  // save (a shared drive, a folder a backup tool watches). Empty: no copy.
  std::string Cartella_Copia_Salvataggio;
  // The command lines of the sibling tools and of Pregeo, "%1" for the file handed over
  // (on this system they run under a compatibility layer or are stand-ins): empty, the
  // tool is not there.
  std::string Strumento_SondaIII, Strumento_ZN_Omnia, Strumento_ZN_SuiteMappa, Strumento_ZN_SuiteLibretti,
      Strumento_ZN_Estratti, Strumento_Pregeo, Strumento_CalcoloGPS;
  // The older program handed at most 10000 points to its triangulator, a fixed array bound;
  // a survey of a GNSS receiver or a scanner is larger, so here the bound is a setting
  // (0: no bound).
  int32_t Limite_Punti_Triangolazione = 10000;

  bool operator==(const Impostazioni&) const = default;
};

}  // namespace varena
