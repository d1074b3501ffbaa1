// Reading and writing of the line-type table.
#include "core/Tratteggi.h"

#include "core/Configura.h"
#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Testo.h"

namespace varena {

const char* const kTestoTratteggi =
    "*CONTINUA,__ __ __ __ \r\n"
    "A, 0.5, 0\r\n"
    "*TRATTEGG,__ __ __ __ \r\n"
    "A, 3, -3\r\n"
    "*NASCOSTA,_ _ _ _ _ _ \r\n"
    "A, -0.5, 0.5\r\n"
    "*ASSE,____ _ ____ _ ____\r\n"
    "A, 12.5, -25, 25, -25\r\n"
    "*LINEE,_____ _ _ _____ _ _\r\n"
    "A, 12.5,-25, 25,-25, 25,-25\r\n"
    "*PUNTINI,................\r\n"
    "A, 0, -25, 0, -25\r\n"
    "*PUNTOLIN,__ . __ . __ .\r\n"
    "A, 50, -25, 0, -25\r\n"
    "*BORDINO,__ __ . __ \r\n"
    "A, 50,-25, 50,-25, 0,-25\r\n"
    "*DIVISION,__ . . __ . . \r\n"
    "A, 50, -25, 0, -25, 0, -25\r\n"
    "*TRATT1,__ __ __ __ __ \r\n"
    "A, 50, -25\r\n"
    "*TRATT2,_ _ _ _ _ _ _ _\r\n"
    "A, 25,-25\r\n"
    "*ASSE1,____ _ ____ _ ____ _\r\n"
    "A, 12.5,-25, 25,-25\r\n"
    "*TRATT3,_____ _ _ _____ _ _ \r\n"
    "A, 12.5, -25, 25, -25, 25, -25\r\n"
    "*TRATT4,__ . __ . __ . __\r\n"
    "A, 50, -25, 0, -25\r\n"
    "*TRATT5,__ __ . __ __ . \r\n"
    "A, 50, -25, 50, -25, 0, -25\r\n"
    "*TRATT6,__ . . __ . . __ . .\r\n"
    "A, 50, -25, 0, -25, 0, -25\r\n"
    "*TRATT7,100,1 __ __ . __ __ . __ \r\n"
    "A, 50, -25, 50, -25, 0, -25\r\n"
    "*TRATT8,__ . . __ . . __ . .\r\n"
    "A, 50, -25, 0, -25, 0, -25\r\n";

namespace {

void Intestazione(const std::string& riga, Tratteggio& t) {
  const std::string corpo = riga.substr(1);
  const size_t virgola = corpo.find(',');
  t.NomeTratteggio = corpo.substr(0, virgola);
  t.DisegnoTratteggio = virgola == std::string::npos ? std::string() : corpo.substr(virgola + 1);
  // A sample that begins with numbers, as "100,1 __ __", carries the scale the style was
  // drawn for and, after its comma, the angle of the pieces.
  const std::string& d = t.DisegnoTratteggio;
  t.ScalaElemento = Val(d);
  const size_t seconda = d.find(',');
  if (seconda != std::string::npos && EUnNumero(d.substr(0, seconda))) t.AngoloElemento = Val(d.substr(seconda + 1));
}

void Schema(const std::string& riga, Tratteggio& t) {
  t.Elementi.fill(0);
  const std::string r = RifilaSinistra(riga);
  if (!(r.size() >= 2 && (r[0] == 'A' || r[0] == 'a') && r[1] == ',')) return;
  int n = 0;
  for (const std::string& campo : Dividi(std::string_view(r).substr(2), ',')) {
    if (n == kMassimoElementi || !EUnNumero(campo)) break;
    t.Elementi[static_cast<size_t>(++n)] = Val(campo);
  }
  t.Elementi[0] = n;
}

void LeggiTratteggi(const std::string& testo, TabellaTratteggi& t) {
  bool attesoSchema = false;
  for (const std::string& riga : RigheTesto(testo)) {
    if (Rifila(riga).empty()) continue;
    if (riga[0] == '*') {
      if (t.NumeroTratteggi + 1 >= kMassimoTratteggi) throw ErroreVarena(kErroreIndice);
      Intestazione(riga, t.Stili[static_cast<size_t>(++t.NumeroTratteggi)]);
      attesoSchema = true;
    } else if (attesoSchema) {
      Schema(riga, t.Stili[static_cast<size_t>(t.NumeroTratteggi)]);
      attesoSchema = false;
    }
  }
}

}  // namespace

std::string PercorsoTratteggi(const Sessione& s) { return s.CartellaProgramma + "/linee.ini"; }

void CaricaTratteggi(Sessione& s) {
  CaricaTabellaTesto(s, "cARICAtRATTEGGI", "linee.ini", PercorsoTratteggi(s), kTestoTratteggi, s.Tratteggi,
                     LeggiTratteggi, [](const TabellaTratteggi& t) { return t.NumeroTratteggi == 0; });
}

std::string TestoTratteggi(const TabellaTratteggi& t) {
  std::string testo;
  for (int i = 1; i <= t.NumeroTratteggi; ++i) {
    const Tratteggio& st = t.Stili[static_cast<size_t>(i)];
    testo += "*" + st.NomeTratteggio + "," + st.DisegnoTratteggio + "\r\n";
    testo += "A,";
    for (int k = 1; k <= st.NumeroElementi(); ++k)
      testo += " " + FormatoMaschera(st.Elementi[static_cast<size_t>(k)], "##############0.0#########") +
               (k < st.NumeroElementi() ? "," : "");
    testo += "\r\n";
  }
  return testo;
}

void SalvaTratteggi(Sessione& s) {
  s.RoutineCorrente = "SalvaTratteggi";
  if (!Protetto(s, [&] { ScriviTesto(PercorsoTratteggi(s), TestoTratteggi(s.Tratteggi)); })) return;
  ConfiguraScrivi(s);
}

}  // namespace varena
