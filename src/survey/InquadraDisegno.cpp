// The framing of the job on its fiducial points.
#include "survey/InquadraDisegno.h"

#include <set>

#include "commands/RoutineModifica.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/TafLettura.h"
#include "selection/Selezione.h"
#include "survey/Convenzioni.h"

namespace varena {

namespace {

bool DellArchivio(const std::string& piano) {
  const std::string p = Maiuscolo(Rifila(piano));
  return p == "TAF" || p == "INCLUSI";
}

std::string Metri(double v) { return FormatoRilievo(v, "####0.0000"); }

}  // namespace

int32_t PuntoRilievoPF(const Sessione& s, const std::string& nome) {
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) {
    const auto k = static_cast<size_t>(r);
    if (IdentVivo(s.PuntoIdent[k]) && !DellArchivio(s.PuntoPiano[k]) && UgualeSenzaCaso(Rifila(s.PuntoNome[k]), nome))
      return r;
  }
  return -1;
}

std::vector<std::string> NomiPFDelDisegno(const Sessione& s) {
  std::vector<std::string> nomi;
  std::set<std::string> visti;
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) {
    const auto k = static_cast<size_t>(r);
    const std::string n = Maiuscolo(Rifila(s.PuntoNome[k]));
    if (IdentVivo(s.PuntoIdent[k]) && !DellArchivio(s.PuntoPiano[k]) && IniziaCon(n, "PF") && n.size() >= 14 &&
        visti.insert(n).second)
      nomi.push_back(n);
  }
  return nomi;
}

std::vector<CoppiaPF> CoppieDaArchivio(const Sessione& s, const std::vector<std::string>& nomi, std::string& errore) {
  std::vector<CoppiaPF> coppie;
  for (const std::string& nome : nomi) {
    const int32_t r = PuntoRilievoPF(s, nome);
    if (r < 0) {
      errore = "PF non trovato nel disegno: " + nome;
      return {};
    }
    bool corta = false;
    const std::optional<PuntoTaf> t = CercaPFInArchivio(s, nome, &corta);
    if (!t) {
      errore = (corta ? "Coordinate mancanti nell'archivio TAF: " : "PF non presente nell'archivio TAF: ") + nome;
      return {};
    }
    const auto k = static_cast<size_t>(r);
    coppie.push_back({Maiuscolo(nome), {s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k]}, {t->Est, t->Nord, 0}});
  }
  return coppie;
}

std::string TabellaResidui(const std::vector<CoppiaPF>& coppie, const EsitoInquadramento& e) {
  std::string t = "Nome\tdN\tdE\tDistanza\t";
  for (size_t k = 0; k < coppie.size() && k < e.Residui.size(); ++k) {
    const ResiduoPF& r = e.Residui[k];
    t += "\n" + coppie[k].Nome + "\t" + Metri(r.DNord) + "\t" + Metri(r.DEst) + "\t" + Metri(r.Distanza) + "\t" +
         (coppie[k].Esclusa ? "escluso" : static_cast<int>(k) == e.Peggiore ? "<<" : "");
  }
  t += "\nRotazione (gon)\t" + TestoGon(e.Rotazione * RadToGon) + "\nScala\t" + FormatoRilievo(e.Scala, "0.000000000") +
       "\nS.q.m.\t" + Metri(e.Sqm);
  return t;
}

bool InquadraTuttoIlDisegno(Sessione& s, const EsitoInquadramento& e) {
  AzzeraSelezione(s);
  SelezionaTutto(s);
  const bool fatto = RotoTraslaSelezione(s, e.Origine, e.NuovaOrigine, e.Rotazione, e.Scala);
  AzzeraSelezione(s);
  return fatto;
}

}  // namespace varena
