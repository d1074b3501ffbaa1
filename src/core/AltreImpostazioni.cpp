// Reading of the toolbar layout, the point configurations and the pagination of plots.
#include "core/AltreImpostazioni.h"

#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Lista.h"
#include "core/Testo.h"

namespace varena {

namespace {

std::vector<std::string> RighePiene(const std::string& testo) {
  std::vector<std::string> righe;
  for (std::string& r : RigheTesto(testo))
    if (!Rifila(r).empty()) righe.push_back(std::move(r));
  return righe;
}

void LeggiToolbar(const std::string& testo, ToolbarBottoni& t) {
  const std::vector<std::string> righe = RigheTesto(testo);
  if (righe.empty()) return;
  const std::vector<double> colonne = NumeriRiga(righe[0], ',');
  t.NumeroColonne = colonne.empty() ? 0 : InteroLungo(colonne[0]);
  if (righe.size() < 2) return;
  for (double g : NumeriRiga(righe[1], '|')) t.Gruppi.push_back(InteroCorto(g));
}

void LeggiStile(const std::string& riga, StilePunto& p) {
  const size_t virgola = riga.find(',');
  if (virgola == std::string::npos) throw ErroreVarena(kErroreTipo);
  const std::vector<double> n = NumeriRiga(std::string_view(riga).substr(virgola + 1), ',');
  if (n.size() < 9) throw ErroreVarena(kErroreTipo);
  p.Font = Rifila(riga.substr(0, virgola));
  p.DimNome = n[0];
  p.ColNome = InteroLungo(n[1]);
  p.Simbolo = InteroLungo(n[2]);
  p.DimSimbolo = n[3];
  p.ColSimbolo = InteroLungo(n[4]);
  p.DimQuota = n[5];
  p.ColQuota = InteroLungo(n[6]);
  p.DimDescrizione = n[7];
  p.ColDescrizione = InteroLungo(n[8]);
}

// A class the file does not reach keeps its default row.
void LeggiConfiguraPunti(const std::string& testo, ConfigurazionePunti& c) {
  const std::vector<std::string> predefinite = RighePiene(kTestoConfiguraPunti);
  const std::vector<std::string> righe = RighePiene(testo);
  for (size_t k = 0; k < c.Classi.size(); ++k) LeggiStile(k < righe.size() ? righe[k] : predefinite[k], c.Classi[k]);
}

}  // namespace

std::string PercorsoToolbarBottoni(const Sessione& s) { return s.CartellaLavoro + "CfgToolbarBottoni.ini"; }

void CaricaToolbarBottoni(Sessione& s) {
  CaricaTabellaTesto(s, "CaricaToolbarBottoni", "CfgToolbarBottoni.ini", PercorsoToolbarBottoni(s),
                     kTestoToolbarBottoni, s.Toolbar, LeggiToolbar,
                     [](const ToolbarBottoni& t) { return t.Gruppi.empty(); });
}

std::string RigaStilePunto(const StilePunto& p) {
  std::string r = p.Font;
  for (double v : {p.DimNome, double(p.ColNome), double(p.Simbolo), p.DimSimbolo, double(p.ColSimbolo), p.DimQuota,
                   double(p.ColQuota), p.DimDescrizione, double(p.ColDescrizione)})
    r += "," + FormaSemplice(v);
  return r + ",";
}

std::string PercorsoConfiguraPuntiDefault(const Sessione& s) { return s.CartellaLavoro + "ConfiguraPUNTI.CPP"; }

std::string PercorsoConfiguraPuntiAttivo(const Sessione& s) {
  const std::string nome = Rifila(NormalizzaPercorso(s.Imp.NomeFileConfiguraPunti));
  if (nome.empty()) return PercorsoConfiguraPuntiDefault(s);
  const std::string foglia = Foglia(nome);
  const std::string conEstensione = foglia.find('.') == std::string::npos ? nome + ".CPP" : nome;
  return conEstensione.front() == '/' ? conEstensione : s.CartellaLavoro + conEstensione;
}

void CaricaConfiguraPunti(Sessione& s) {
  const std::string attivo = PercorsoConfiguraPuntiAttivo(s);
  const std::string percorso = EsisteFile(attivo) ? attivo : PercorsoConfiguraPuntiDefault(s);
  CaricaTabellaTesto(s, "CaricaConfiguraPunti", ".CPP", percorso, kTestoConfiguraPunti,
                     s.ConfiguraPunti, LeggiConfiguraPunti, [](const ConfigurazionePunti&) { return true; });
}

std::string PercorsoStampaPaginato(const Sessione& s) { return s.CartellaLavoro + "StampaPaginato.ini"; }

void LeggiStampaPaginato(Sessione& s) {
  s.RoutineCorrente = "StampaPaginata";
  s.Paginato = StampaPaginato{};
  const std::string percorso = PercorsoStampaPaginato(s);
  const bool fatto = Protetto(s, [&] {
    const auto testo = LeggiTestoImpostazioni(s, "StampaPaginato.ini", percorso);
    if (!testo) return;
    LettoreLista in(*testo);
    StampaPaginato p;
    p.ModoPaginato = in.LeggiI32();
    p.Colonne = in.LeggiTesto();
    p.Righe = in.LeggiTesto();
    s.Paginato = p;
  });
  if (!fatto) MarcaErrato(s, "StampaPaginato.ini", percorso);
}

}  // namespace varena
