// Reader and writer of `Configura.ini`, driven by one table of keys.
#include "core/Configura.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>
#include <variant>

#include "core/Errori.h"
#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

namespace {

using Campo = std::variant<std::string Impostazioni::*, int16_t Impostazioni::*, int32_t Impostazioni::*,
                           uint8_t Impostazioni::*, double Impostazioni::*, float Impostazioni::*>;

struct Riga {
  VoceConfigura voce;
  Campo campo;
};

using I = Impostazioni;
const std::vector<Riga>& Righe() {
  static const std::vector<Riga> righe = {
      {{"Configurazione_Ambiente", "NomeFileConfiguraPunti", 's', nullptr}, &I::NomeFileConfiguraPunti},
      {{"Configurazione_Ambiente", "nomefileautoallestito", 's', nullptr}, &I::nomefileautoallestito},
      {{"Configurazione_Ambiente", "MostraIngombroDisegno", 'i', nullptr}, &I::MostraIngombroDisegno},
      {{"Configurazione_Ambiente", "SalvaUnaCopiaZip", 'i', nullptr}, &I::SalvaUnaCopiaZip},
      {{"Configurazione_Ambiente", "RiapriUltimoLavoro", 'i', nullptr}, &I::RiapriUltimoLavoro},
      {{"Configurazione_Ambiente", "MostraDescrizione", 'l', nullptr}, &I::MostraDescrizione},
      {{"Configurazione_Ambiente", "MostraNome", 'l', nullptr}, &I::MostraNome},
      {{"Configurazione_Ambiente", "MostraQuota", 'l', nullptr}, &I::MostraQuota},
      {{"Testo", "AngoloTestoDefault", 'd', nullptr}, &I::AngoloTestoDefault},
      {{"Testo", "AltezzaTestoDefault", 'd', nullptr}, &I::AltezzaTestoDefault},
      {{"Testo", "FontTestoDefault", 's', nullptr}, &I::FontTestoDefault},
      {{"Testo", "ColoreTestoDefault", 'i', nullptr}, &I::ColoreTestoDefault},
      {{"Visualizza", "Cornice", 'l', nullptr}, &I::Cornice},
      {{"Visualizza", "Trasparenza", 'l', nullptr}, &I::Trasparenza},
      {{"Puntatori", "MenuMouse", 'l', nullptr}, &I::MenuMouse},
      {{"Puntatori", "Puntatore", 'l', nullptr}, &I::Puntatore},
      {{"Puntatori", "ComandiSuSnap", 'l', nullptr}, &I::ComandiSuSnap},
      {{"Configurazione_Ambiente", "Fai_Anteprima_SiNo", 'l', nullptr}, &I::Fai_Anteprima_SiNo},
      {{"Configurazione_Ambiente", "Colore_Fondo_Default", 'l', nullptr}, &I::Colore_Fondo_Default},
      {{"Configurazione_Ambiente", "Tratteggio_Default", 'l', nullptr}, &I::Tratteggio_Default},
      {{"Configurazione_Ambiente", "Stira_Linee", 'l', nullptr}, &I::Stira_Linee},
      {{"Configurazione_Ambiente", "Info_Estesa", 'l', nullptr}, &I::Info_Estesa},
      {{"Configurazione_Ambiente", "VISUALIZZA_SNAP", 'l', nullptr}, &I::VISUALIZZA_SNAP},
      {{"Configurazione_Ambiente", "Stampa_Scala_Plottaggio", 'l', nullptr}, &I::Stampa_Scala_Plottaggio},
      {{"Configurazione_Ambiente", "Stampa_Nome_Lavoro", 'l', nullptr}, &I::Stampa_Nome_Lavoro},
      {{"Configurazione_Ambiente", "Colore_Default", 'l', nullptr}, &I::Colore_Default},
      {{"Configurazione_Ambiente", "Azzera_Codici_Catastali", 'l', nullptr}, &I::Azzera_Codici_Catastali},
      {{"Configurazione_Ambiente", "Cartella_Default", 's', nullptr}, &I::Cartella_Default},
      {{"Configurazione_Ambiente", "FATTORE_DI_ZOOM", 'd', nullptr}, &I::FATTORE_DI_ZOOM},
      {{"Configurazione_Ambiente", "Icone_grandi", 'l', nullptr}, &I::Icone_grandi},
      {{"Mostra Informazioni Sui Comandi", "INFOCOMANDI", 'i', nullptr}, &I::INFOCOMANDI},
      {{"Configurazione_Ambiente", "Numero_Punti", 'd', nullptr}, &I::Numero_Punti},
      {{"Configurazione_Ambiente", "Distanza", 'd', nullptr}, &I::Distanza},
      {{"Configurazione_Ambiente", "Numero_Righe", 'd', nullptr}, &I::Numero_Righe},
      {{"Configurazione_Ambiente", "Numero_Colonne", 'd', nullptr}, &I::Numero_Colonne},
      {{"Configurazione_Ambiente", "Angolo_Campitura", 'd', nullptr}, &I::Angolo_Campitura},
      {{"Configurazione_Ambiente", "Distanza_Campitura", 'd', nullptr}, &I::Distanza_Campitura},
      {{"Configurazione_Ambiente", "Alfa", 'd', nullptr}, &I::Alfa},
      {{"Configurazione_Ambiente", "Beta", 'd', nullptr}, &I::Beta},
      {{"Configurazione_Ambiente", "D1", 'd', nullptr}, &I::D1},
      {{"Configurazione_Ambiente", "D2", 'd', nullptr}, &I::D2},
      {{"Configurazione_Ambiente", "Ambito_Laterale", 'd', nullptr}, &I::Ambito_Laterale},
      {{"INFO_DISTANZA", "TIPODISTANZA", 'b', nullptr}, &I::TIPODISTANZA},
      {{"Configurazione_Ambiente", "CollegaPuntoSimbolo", 'l', nullptr}, &I::CollegaPuntoSimbolo},
      {{"Configurazione_Ambiente", "VPLOT", 'i', nullptr}, &I::VPLOT},
      {{"Configurazione_Ambiente", "TOOLTIPBELLA", 'i', nullptr}, &I::TOOLTIPBELLA},
      {{"Configurazione_Ambiente", "SOLOCOLORINELDISEGNO", 'i', nullptr}, &I::SOLOCOLORINELDISEGNO},
      {{"PNG", "PNGCONG", 'i', nullptr}, &I::PNGCONG},
      {{"Configurazione_Stampa", "DIMENSIONEUNICAPUNTO", 'd', "#######0.0###"}, &I::DIMENSIONEUNICAPUNTO},
      {{"Linea_Altezza_Testo", "LineaMostraLunghezza", 'f', "#######0"}, &I::LineaMostraLunghezza},
      {{"Linea_Altezza_Testo", "LineaDecimali", 'f', nullptr}, &I::LineaDecimali},
      // Ours, after every key of the older program, which skips them as unknown.
      {{"Cartelle", "Cartella_Pregeo", 's', nullptr}, &I::Cartella_Pregeo},
      {{"Cartelle", "Cartella_Estratti", 's', nullptr}, &I::Cartella_Estratti},
      {{"Cartelle", "Cartella_Archivio_Pregeo", 's', nullptr}, &I::Cartella_Archivio_Pregeo},
      {{"Cartelle", "Cartella_Fiducial", 's', nullptr}, &I::Cartella_Fiducial},
      {{"Cartelle", "Cartella_Copia_Salvataggio", 's', nullptr}, &I::Cartella_Copia_Salvataggio},
      {{"Terreno", "Limite_Punti_Triangolazione", 'l', nullptr}, &I::Limite_Punti_Triangolazione},
      {{"Strumenti", "SondaIII", 's', nullptr}, &I::Strumento_SondaIII},
      {{"Strumenti", "ZN_Omnia", 's', nullptr}, &I::Strumento_ZN_Omnia},
      {{"Strumenti", "ZN_SuiteMappa", 's', nullptr}, &I::Strumento_ZN_SuiteMappa},
      {{"Strumenti", "ZN_SuiteLibretti", 's', nullptr}, &I::Strumento_ZN_SuiteLibretti},
      {{"Strumenti", "ZN_Estratti", 's', nullptr}, &I::Strumento_ZN_Estratti},
      {{"Strumenti", "Pregeo", 's', nullptr}, &I::Strumento_Pregeo},
      {{"Strumenti", "CalcoloGPS", 's', nullptr}, &I::Strumento_CalcoloGPS},
  };
  return righe;
}

void Assegna(Impostazioni& imp, const Campo& campo, const std::string& valore) {
  std::visit(
      [&](auto m) {
        using V = std::decay_t<decltype(imp.*m)>;
        if constexpr (std::is_same_v<V, std::string>) {
          imp.*m = valore;
        } else {
          const double v = Val(valore);
          if constexpr (std::is_same_v<V, double> || std::is_same_v<V, float>)
            imp.*m = static_cast<V>(v);
          else if constexpr (std::is_same_v<V, int16_t>)
            imp.*m = InteroCorto(v);
          else if constexpr (std::is_same_v<V, int32_t>)
            imp.*m = InteroLungo(v);
          else
            imp.*m = static_cast<V>(std::clamp<int64_t>(ArrotondaPari(v), 0, 255));
        }
      },
      campo);
}

std::string Scrivi(const Impostazioni& imp, const Riga& r) {
  return std::visit(
      [&](auto m) -> std::string {
        using V = std::decay_t<decltype(imp.*m)>;
        if constexpr (std::is_same_v<V, std::string>) {
          return imp.*m;
        } else {
          const double v = static_cast<double>(imp.*m);
          if (r.voce.Maschera) return FormatoMaschera(v, r.voce.Maschera);
          if constexpr (std::is_same_v<V, float>) {
            // A single prints with the digits it holds: 0.1 and not 0.100000001490116.
            char buf[32];
            const auto fine = std::to_chars(buf, buf + sizeof buf, imp.*m).ptr;
            return std::isfinite(imp.*m) ? std::string(buf, fine) : std::string("0");
          }
          return FormaSemplice(v);
        }
      },
      r.campo);
}

}  // namespace

const std::vector<VoceConfigura>& TabellaConfigura() {
  static const std::vector<VoceConfigura> voci = [] {
    std::vector<VoceConfigura> v;
    for (const Riga& r : Righe()) v.push_back(r.voce);
    return v;
  }();
  return voci;
}

void ImpostazioniDefault(Sessione& s) {
  s.Imp = Impostazioni{};
  s.Imp.Cartella_Default = s.CartellaLavoro + "LAVORI";
  s.Imp.Cartella_Pregeo = s.CartellaLavoro + "PREGEO";
  s.Imp.Cartella_Estratti = s.Imp.Cartella_Pregeo + "/ESTRATTI";
  s.Imp.Cartella_Archivio_Pregeo = s.Imp.Cartella_Pregeo + "/ARCH";
  s.Imp.Cartella_Fiducial = s.CartellaLavoro + "FIDUCIAL";
}

std::string PercorsoConfigura(const Sessione& s) { return s.CartellaLavoro + "Configura.ini"; }

void ConfiguraLeggi(Sessione& s) {
  s.RoutineCorrente = "ConfiguraLeggi";
  ImpostazioniDefault(s);
  std::set<std::string> letti;
  const bool fatto = Protetto(s, [&] {
    const auto testo = LeggiTestoImpostazioni(s, "Configura.ini", PercorsoConfigura(s));
    if (!testo) return;
    for (const std::string& riga : RigheTesto(*testo)) {
      const std::vector<std::string> campi = Dividi(riga + ",,,", ',');
      for (const Riga& r : Righe()) {
        if (campi[1] != r.voce.Chiave) continue;
        Assegna(s.Imp, r.campo, campi[2]);
        letti.insert(r.voce.Chiave);
        break;
      }
    }
  });
  if (!fatto) MarcaErrato(s, "Configura.ini", PercorsoConfigura(s));
  if (s.Imp.FATTORE_DI_ZOOM < 1) s.Imp.FATTORE_DI_ZOOM = 1.0;
  // The folders of a Pregeo installation move with its root unless they are set apart.
  std::string pregeo = Rifila(NormalizzaPercorso(s.Imp.Cartella_Pregeo));
  while (pregeo.size() > 1 && pregeo.back() == '/') pregeo.pop_back();
  if (!letti.count("Cartella_Estratti")) s.Imp.Cartella_Estratti = pregeo + "/ESTRATTI";
  if (!letti.count("Cartella_Archivio_Pregeo")) s.Imp.Cartella_Archivio_Pregeo = pregeo + "/ARCH";
}

std::string ValoreConfigura(const Sessione& s, size_t riga) { return Scrivi(s.Imp, Righe().at(riga)); }

std::string TestoConfigura(const Sessione& s) {
  std::string testo;
  for (const Riga& r : Righe()) {
    testo += r.voce.Sezione;
    testo += ',';
    testo += r.voce.Chiave;
    testo += ',';
    testo += Scrivi(s.Imp, r);
    testo += "\r\n";
  }
  return testo;
}

void ConfiguraScrivi(Sessione& s) {
  s.RoutineCorrente = "ConfiguraScrivi";
  if (s.SolaLettura) return;
  Protetto(s, [&] { ScriviTesto(PercorsoConfigura(s), TestoConfigura(s)); });
}

}  // namespace varena
