// The copy commands of a section. Both write a scratch file of the working root's `temp`
// folder, beside the hand-over file, so that the other program finds them in one place.
#include "sections/CopiaSezioni.h"

#include "commands/AiutiDisegno.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/Incolla.h"
#include "sections/ComandiSezioni.h"
#include "sections/DisegnoSezioni.h"
#include "view/ListaDisegno.h"

namespace varena {

namespace {

constexpr const char* kTitoloCopia = "Copia Sezione";

std::string Metri(double v) { return FormatoMaschera(v, "#########0.000"); }

// A tab would split a name into two columns of the table, a double quote end an item of the
// hand-over file early.
std::string Campo(std::string_view t, char via) { return Sostituisci(t, std::string(1, via), via == '"' ? "'" : " "); }

// The text written at `percorso`, its folder made first; false when it could not be (said).
bool Scrivi(Sessione& s, const std::string& percorso, const std::string& testo) {
  return Protetto(s, [&] {
    NuovaCartella(Cartella(percorso));
    ScriviTesto(percorso, testo);
  });
}

}  // namespace

std::string TabellaValoriSezione(const Sezione& z) {
  std::string t = "Sezione\t" + Campo(z.IndiceSezione, '\t') + "\r\n";
  t += "Punto\tProgressiva\tParziale\tEst\tNord\tQuota Terreno\tQuota Progetto\tQuota Rossa\r\n";
  const std::vector<double> pr = Progressive(z);
  for (size_t i = 0; i < z.Stazioni.size(); ++i) {
    const StazioneSezione& p = z.Stazioni[i];
    const double parziale = i == 0 ? 0 : pr[i] - pr[i - 1];
    t += Campo(p.Nome, '\t');
    for (double v : {z.Cfg.OrigineQuotatura + pr[i], parziale, p.X, p.Y, p.QuotaTerreno, p.QuotaProgetto, p.QuotaProgetto - p.QuotaTerreno})
      t += "\t" + Metri(v);
    t += "\r\n";
  }
  const AreeSezione a = AreeSterroRiporto(z);
  t += "Area Sterro\t" + Metri(a.Sterro) + "\r\n";
  t += "Area Riporto\t" + Metri(a.Riporto) + "\r\n";
  t += "Area Totale\t" + Metri(a.Sterro + a.Riporto) + "\r\n";
  return t;
}

std::string PercorsoValoriSezione(const Sessione& s) { return Cartella(PercorsoCopiaInFile(s)) + "/TEMPSQUANTI.TMP"; }

std::string TestoCopiaSezione(const Sessione& s, int32_t riga) {
  std::string out;
  const ElencoDisegno& l = s.ListaDisegno;
  for (int64_t i = 0; i < l.Conta(); ++i) {
    const auto k = static_cast<size_t>(i);
    if (l.Tipo[k] != SlotSezioni || l.Riga[k] != riga) continue;
    IstruzioneLista r;
    if (l.Primitiva[k] == PrimTesto) {
      // X, Y, rotation, height, rows, colour, frozen, columns, layer, font, text.
      r.Testo("T").Numero(l.X1[k]).Numero(l.Y1[k]).Numero(l.Rotazione[k]).Numero(l.Altezza[k]).Numero(1);
      r.Numero(l.Penna[k]).Numero(0).Numero(0).Testo(Campo(l.Piano(i), '"')).Testo(l.Font(i));
      r.Testo(Campo(l.Testo(i), '"'));
    } else {
      // Two ends, colour, line type, frozen, layer, truncation: a continuous line, flat.
      r.Testo("L").Numero(l.X1[k]).Numero(l.Y1[k]).Numero(0).Numero(l.X2[k]).Numero(l.Y2[k]).Numero(0);
      r.Numero(l.Penna[k]).Numero(1).Numero(0).Testo(Campo(l.Piano(i), '"')).Numero(0);
    }
    out += r.Riga();
  }
  return out;
}

void subCopiaValoriSezione(Sessione& s) {
  const int32_t riga = SezioneCliccata(s);
  if (riga < 0) return;
  s.RoutineCorrente = "Copia Valori Sezione";
  const std::string testo = TabellaValoriSezione(s.SezioneDati[static_cast<size_t>(riga)]);
  if (Scrivi(s, PercorsoValoriSezione(s), testo)) {
    s.Clip->Scrivi(testo);
    s.Ui->Messaggio("Valori della sezione copiati negli Appunti!", kTitoloCopia, Icona::Informazione);
  }
  Riprendi(s);
}

void subCopiaSezioneInFile(Sessione& s) {
  const int32_t riga = SezioneCliccata(s);
  if (riga < 0) return;
  s.RoutineCorrente = "Copia Sezione in File";
  if (Scrivi(s, PercorsoCopiaInFile(s), TestoCopiaSezione(s, riga)))
    s.Ui->Messaggio("Sezione copiata in " + PercorsoCopiaInFile(s), kTitoloCopia, Icona::Informazione);
  Riprendi(s);
}

}  // namespace varena
