// Builds the demonstration job RILIEVO: a small survey of a house with its yard near a
// road, measured from two stations and framed on three fiducial points. The field book
// holds the readings the coordinates were computed from, so the two agree.
//
//   varena-esempio CARTELLA     writes CARTELLA/RILIEVO.*
#include <cmath>
#include <cstdio>
#include <string>

#include "core/File.h"
#include "core/Piani.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Cfg.h"
#include "store/Salva.h"
#include "store/Slot.h"

using namespace varena;

namespace {

constexpr double kE0 = 1725300.0;  // a corner of the sheet, Gauss-Boaga East near Padova
constexpr double kN0 = 5031200.0;
const double kPi = 4.0 * std::atan(1.0);

void Punto(Sessione& s, const std::string& nome, const std::string& descrizione, double e, double n, double q,
           int simbolo, int colore, float hPrisma) {
  DimensionaPunti(s);
  const auto r = static_cast<size_t>(s.ContaEntita[SlotPunti]);
  s.PuntoIdent[r] = 0;
  s.PuntoNome[r] = nome;
  s.PuntoDescrizione[r] = descrizione;
  s.PuntoX[r] = kE0 + e;
  s.PuntoY[r] = kN0 + n;
  s.PuntoZ[r] = q;
  s.PuntoDimensioneSimbolo[r] = -1.5;
  s.PuntoDimensioneNome[r] = -1.5;
  s.PuntoDimensioneQuota[r] = -1.5;
  s.PuntoDimensioneDescrizione[r] = -1.5;
  s.PuntoColoreSimbolo[r] = colore;
  s.PuntoColoreNome[r] = 10;
  s.PuntoColoreQuota[r] = 32;
  s.PuntoColoreDescrizione[r] = 60;
  s.PuntoAttendibilita[r] = 12;
  s.PuntoSimbolo[r] = static_cast<int16_t>(simbolo);
  s.PuntoPiano[r] = "PUNTI";
  s.PuntoSpoX[r] = 0.3;
  s.PuntoSpoY[r] = 0.3;
  s.PuntoSpoZ[r] = -0.6;
  s.PuntoFont[r] = "Arial";
  s.PuntoHPrisma[r] = hPrisma;
  ++s.ContaEntita[SlotPunti];
}

int Trova(const Sessione& s, const std::string& nome) {
  for (int i = 0; i < s.ContaEntita[SlotPunti]; ++i)
    if (s.PuntoNome[static_cast<size_t>(i)] == nome) return i;
  return -1;
}

void Linea(Sessione& s, const std::string& a, const std::string& b, int colore, int tratteggio, const char* piano,
           bool quotata = false) {
  const auto i = static_cast<size_t>(Trova(s, a)), j = static_cast<size_t>(Trova(s, b));
  DimensionaLinee(s);
  const auto r = static_cast<size_t>(s.ContaEntita[SlotLinee]);
  s.LineaIdent[r] = 0;
  s.LineaX1[r] = s.PuntoX[i];
  s.LineaY1[r] = s.PuntoY[i];
  s.LineaZ1[r] = s.PuntoZ[i];
  s.LineaX2[r] = s.PuntoX[j];
  s.LineaY2[r] = s.PuntoY[j];
  s.LineaZ2[r] = s.PuntoZ[j];
  s.LineaColore[r] = colore;
  s.LineaTratteggio[r] = static_cast<int16_t>(tratteggio);
  s.LineaQuotata[r] = quotata ? 1 : 0;
  s.LineaOffsetQuota[r] = quotata ? 0.5f : 0.0f;
  s.LineaPiano[r] = piano;
  ++s.ContaEntita[SlotLinee];
}

void Testo(Sessione& s, double e, double n, double rotazione, double altezza, const std::string& testo, int colore) {
  DimensionaTesti(s);
  const auto r = static_cast<size_t>(s.ContaEntita[SlotTesti]);
  s.TestoIdent[r] = 0;
  s.TestoX[r] = kE0 + e;
  s.TestoY[r] = kN0 + n;
  s.TestoRotazione[r] = rotazione;
  s.TestoAltezza[r] = altezza;
  s.TestoRighe[r] = 1;
  s.TestoColonne[r] = 1;
  s.TestoColore[r] = colore;
  s.TestoPiano[r] = "TESTI";
  s.TestoFont[r] = "Arial";
  s.TestoTesto[r] = testo;
  ++s.ContaEntita[SlotTesti];
}

// Azimuth in gon from (e1, n1) to (e2, n2), clockwise from North.
double AzimutGon(double e1, double n1, double e2, double n2) {
  double a = std::atan2(e2 - e1, n2 - n1) * 200.0 / kPi;
  return a < 0 ? a + 400.0 : a;
}

// A station's readings of the points it saw: azimuthal readings carry the station's own
// orientation offset, distances are slope distances from the heights.
void Stazione(Sessione& s, const std::string& stazione, double hStrumento, double orientamento,
              std::initializer_list<const char*> visti) {
  const auto st = static_cast<size_t>(Trova(s, stazione));
  AggiungiRigaLibretto(s, "1|" + stazione + "|" + FormatoMaschera(hStrumento, "0.000") + "|");
  for (const char* nome : visti) {
    const auto p = static_cast<size_t>(Trova(s, nome));
    const double de = s.PuntoX[p] - s.PuntoX[st], dn = s.PuntoY[p] - s.PuntoY[st];
    const double piana = std::hypot(de, dn);
    const double hPrisma = s.PuntoHPrisma[p];
    const double dz = (s.PuntoZ[p] + hPrisma) - (s.PuntoZ[st] + hStrumento);
    double lettura = AzimutGon(s.PuntoX[st], s.PuntoY[st], s.PuntoX[p], s.PuntoY[p]) - orientamento;
    if (lettura < 0) lettura += 400.0;
    const double zenit = 100.0 - std::atan2(dz, piana) * 200.0 / kPi;
    AggiungiRigaLibretto(s, std::string("2|") + nome + "|" + FormatoMaschera(lettura, "0.0000") + "|" +
                                FormatoMaschera(zenit, "0.0000") + "|" + FormatoMaschera(std::hypot(piana, dz), "0.000") +
                                "|" + FormatoMaschera(hPrisma, "0.000") + "|");
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "uso: varena-esempio CARTELLA\n");
    return 64;
  }
  Sessione s;
  s.NomeLavoro = NormalizzaPercorso(argv[1]) + "/RILIEVO";
  s.NomeOriginale = s.NomeLavoro;

  // Fiducial points of sheet 10 of the municipality G693, stations, surveyed points.
  Punto(s, "PF01/0010/G693", "<PF> CHIODO SU SPIGOLO", -182.410, 265.330, 14.820, 32, 20, 0.0f);
  Punto(s, "PF02/0010/G693", "<PF> CROCE SU CIPPO", 312.775, 198.640, 15.470, 32, 20, 0.0f);
  Punto(s, "PF03/0010/G693", "<PF> SPIGOLO FABBRICATO", 95.120, -241.905, 13.960, 32, 20, 0.0f);
  Punto(s, "100", "STAZIONE", 0.000, 0.000, 14.350, 66, 21, 1.550f);
  Punto(s, "200", "STAZIONE", 45.213, 12.688, 14.612, 66, 21, 1.520f);
  const struct {
    const char* nome;
    const char* descrizione;
    double e, n, q;
  } rilevati[] = {
      {"101", "SPIGOLO FABBRICATO", 12.004, 8.117, 14.402},  {"102", "SPIGOLO FABBRICATO", 24.522, 9.968, 14.398},
      {"103", "SPIGOLO FABBRICATO", 22.671, 22.486, 14.405}, {"104", "SPIGOLO FABBRICATO", 10.153, 20.635, 14.410},
      {"105", "RECINZIONE", 2.510, -6.020, 14.221},          {"106", "RECINZIONE", 38.940, -0.633, 14.305},
      {"107", "RECINZIONE", 34.872, 34.166, 14.512},         {"108", "RECINZIONE", -1.553, 28.779, 14.487},
      {"109", "CANCELLO", 0.478, 11.379, 14.330},            {"110", "CIGLIO STRADA", -8.120, -14.650, 14.102},
      {"111", "CIGLIO STRADA", 20.340, -12.880, 14.088},     {"112", "CIGLIO STRADA", 48.905, -7.410, 14.120},
      {"113", "POZZETTO", 30.115, 4.220, 14.260},            {"114", "ALBERO", 5.870, 31.440, 14.530},
      {"115", "CHIODO MINIATO", 41.660, 27.905, 14.618},
  };
  for (const auto& p : rilevati) Punto(s, p.nome, p.descrizione, p.e, p.n, p.q, 35, 24, 1.500f);

  // House, fence with its gate, road edge; the house sides carry their length.
  Linea(s, "101", "102", 1, 1, "FABBRIC", true);
  Linea(s, "102", "103", 1, 1, "FABBRIC", true);
  Linea(s, "103", "104", 1, 1, "FABBRIC", true);
  Linea(s, "104", "101", 1, 1, "FABBRIC", true);
  Linea(s, "105", "106", 3, 2, "RECINZ");
  Linea(s, "106", "107", 3, 2, "RECINZ");
  Linea(s, "107", "108", 3, 2, "RECINZ");
  Linea(s, "108", "109", 3, 2, "RECINZ");
  Linea(s, "109", "105", 5, 1, "RECINZ");
  Linea(s, "110", "111", 8, 1, "STRADA");
  Linea(s, "111", "112", 8, 1, "STRADA");
  Linea(s, "100", "200", 6, 3, "POLIGON");

  // The curve of the drive into the road, and the flower bed in front of the house.
  DimensionaArchi(s);
  s.ArcoIdent[0] = 0;
  s.ArcoX[0] = kE0 - 8.120;
  s.ArcoY[0] = kN0 - 4.650;
  s.ArcoZ[0] = 14.1;
  s.ArcoRaggio[0] = 10.0;
  s.ArcoInizio[0] = 200.0;  // gon: from South
  s.ArcoFine[0] = 100.0;    // a quarter turn, clockwise towards West
  s.ArcoColore[0] = 8;
  s.ArcoTratteggio[0] = 1;
  s.ArcoQuotaInizio[0] = 14.102;
  s.ArcoQuotaFinale[0] = 14.150;
  s.ArcoPiano[0] = "STRADA";
  s.ContaEntita[SlotArchi] = 1;

  for (int k = 0; k < 2; ++k) {
    DimensionaCerchi(s);
    const auto r = static_cast<size_t>(k);
    s.CerchioIdent[r] = 0;
    s.CerchioX[r] = kE0 + (k == 0 ? 30.115 : 5.870);
    s.CerchioY[r] = kN0 + (k == 0 ? 4.220 : 31.440);
    s.CerchioZ[r] = k == 0 ? 14.26 : 14.53;
    s.CerchioRaggio[r] = k == 0 ? 0.60 : 2.50;
    s.CerchioColore[r] = k == 0 ? 5 : 3;
    s.CerchioTratteggio[r] = 1;
    s.CerchioPiano[r] = k == 0 ? "SERVIZI" : "VERDE";
    ++s.ContaEntita[SlotCerchi];
  }

  Testo(s, 14.0, 14.5, 9.36, 1.5, "FABBRICATO", 1);
  Testo(s, 18.0, -18.0, 6.5, 2.0, "STRADA COMUNALE DEL MOLINO", 8);
  Testo(s, 31.0, 5.0, 0.0, 0.8, "Pozzetto", 5);
  Testo(s, -150.0, 250.0, 0.0, 3.0, "Foglio 10 - Comune G693", 1);

  // Contorno-7: the house as a plain contour with its parcel number in the yard, and the fence;
  // each list of names starts and ends with its "|".
  for (int k = 0; k < 2; ++k) {
    DimensionaSette(s);
    const auto r = static_cast<size_t>(k);
    s.SetteIdent[r] = 0;
    s.SetteContorno[r] = k == 0 ? "|101|102|103|104|101|" : "|105|106|107|108|109|105|";
    s.SetteCommento[r] = k == 0 ? "FABBRICATO" : "RECINZIONE";
    // The label stands in the yard (27 m North, 26 m East of the corner): field 3 its North,
    // field 4 its East.
    s.SetteParticella[r] = k == 0 ? "245|||5031227|1725326" : "";
    s.SetteColore[r] = k == 0 ? 1 : 3;
    s.SetteTratteggio[r] = 1;
    ++s.ContaEntita[SlotSette];
  }

  AggiungiRigaLibretto(s, "0|21112026|1|G693|0010|1|ROSSI MARIO|GEOMETRA|PADOVA|");
  AggiungiRigaLibretto(s, "9|20|10|20|1070|9.00-G|FR|rilievo celerimetrico|");
  Stazione(s, "100", 1.550, 37.2215,
           {"PF01/0010/G693", "PF03/0010/G693", "200", "101", "102", "104", "105", "106", "108", "109", "110", "111",
            "114"});
  Stazione(s, "200", 1.520, 312.0480, {"PF02/0010/G693", "100", "102", "103", "106", "107", "112", "113", "115"});
  AggiungiRigaLibretto(s, "6|FABBRICATO DA INSERIRE|");
  AggiungiRigaLibretto(s, "7|5|101|102|103|104|101|NC|");

  s.Piani = {LeggiRigaPiano("0|0|1|0|1|Arial|0|0|"),       LeggiRigaPiano("PUNTI|0|24|0|1|Arial|0|0|"),
             LeggiRigaPiano("FABBRIC|0|1|1|2|Arial|0|0|"), LeggiRigaPiano("RECINZ|0|3|2|1|Arial|0|0|"),
             LeggiRigaPiano("STRADA|0|8|1|1|Arial|0|0|"),  LeggiRigaPiano("POLIGON|0|6|3|1|Arial|0|0|"),
             LeggiRigaPiano("SERVIZI|0|5|1|1|Arial|0|0|"), LeggiRigaPiano("VERDE|0|3|1|1|Arial|0|0|"),
             LeggiRigaPiano("TESTI|0|1|0|1|Arial|0|0|")};
  s.PianoCorrente = "PUNTI";
  s.Vista.CentroEst = kE0 + 20.0;
  s.Vista.CentroNord = kN0 + 10.0;
  s.Vista.AltezzaVista = 70.0;

  NuovaCartella(argv[1]);
  if (!SalvaTutto(s)) return 1;
  // A job as a surveyor keeps it: no record of a provisional copy beside it.
  EliminaFile(s.NomeLavoro + EstensioneFile(SlotInf));
  return 0;
}
