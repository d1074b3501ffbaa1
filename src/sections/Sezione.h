// A cross section or longitudinal profile: its stations and the whole layout of its sheet,
// one row of the section table. Plain data, so that the table, the file and the drawing share it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace varena {

// The stations of a section are counted from 1 to this bound, as the working arrays allow.
inline constexpr int kMassimoPuntiSezione = 500;

struct StazioneSezione {
  std::string Nome;
  double X = 0, Y = 0;
  double QuotaTerreno = 0;
  double QuotaProgetto = 0;  // equal to the terrain where no project exists
  bool operator==(const StazioneSezione&) const = default;
};

// One row of values under the datum line, or a group that draws without one.
struct GruppoSezione {
  int16_t Disegna = 1;
  double AltezzaFincatura = 0;  // the row's height on the sheet, metres
  double AltezzaTesto = 0;
  int32_t Colore = 7;
  int16_t OrientamentoVerticale = 0;  // texts turned by 100 gon
  std::string Titolo;
  bool operator==(const GruppoSezione&) const = default;
};

// A block of the frame's title: switch, text height, colour.
struct BloccoCornice {
  int16_t Disegna = 1;
  double AltezzaTesto = 0;
  int32_t Colore = 7;
  bool operator==(const BloccoCornice&) const = default;
};

struct ConfigurazioneSezione {
  double ScalaLunghezze = 200, ScalaAltezze = 20;  // denominators of 1:n
  GruppoSezione Terreno;                           // "Profilo del Terreno": text height, colour
  int16_t QuoteRosse = 1;
  GruppoSezione Verticali;                         // "Linee Verticali": switch, colour
  int32_t ColoreQuotaRiferimento = 7;
  GruppoSezione NomiPunti;                         // "Nomi Punti"
  int16_t NomiPuntiOrdinati = 0;
  int16_t ProfiloProgetto = 0;
  double QuotaRiferimento = 0;
  GruppoSezione DistanzeParziali;
  int16_t DecimaliParziali = 2;
  GruppoSezione DistanzeProgressive;
  double OrigineQuotatura = 0;
  GruppoSezione DistanzeInclinate;
  int16_t MostraPendenza = 0, PendenzaPercentuale = 0;
  GruppoSezione QuoteTerreno;
  GruppoSezione QuoteProgetto;
  GruppoSezione LineaInvaso;                       // "Linea Quota Di Invaso": switch, colour
  double QuotaInvaso = 0;
  std::string NomeBase = "SEZ";
  int16_t FlagNomeBase = 0;
  BloccoCornice NomeSezione, NumeroSezione, DistanzaPrecedente, BloccoQuotaRiferimento;
  int16_t CentraNomeSezione = 0;
  // The values of the last line of the block.
  int32_t ColoreProgetto = 1, ColoreQuoteRosse = 1;
  double AreaSterro = 0, AreaRiporto = 0, QuotaProgetto = 0;
  int16_t TestoSterroRiporto = 0, DisegnaQuotatura = 1, BloccoDescrizioni = 0;
  double LarghezzaBox = 0;
  double Inizio = 0, Fine = 0;
  double XInizio = 0, YInizio = 0, XFine = 0, YFine = 0;
  int16_t Congela = 0;
  bool operator==(const ConfigurazioneSezione&) const = default;
};

struct Sezione {
  ConfigurazioneSezione Cfg;
  std::string IndiceSezione;
  double OrigineX = 0, OrigineY = 0;
  std::vector<StazioneSezione> Stazioni;  // NumeroPunti of them
  bool operator==(const Sezione&) const = default;
};

// The layout a new section gets when no default was saved.
ConfigurazioneSezione ConfigurazioneIniziale();

// Heights are drawn this many times longer than distances.
double FattoreAltezze(const ConfigurazioneSezione& c);

// Plan distance from each station to the next; the progressive of a station is the sum of
// those before it.
std::vector<double> DistanzePiane(const Sezione& z);

}  // namespace varena
