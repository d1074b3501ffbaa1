// The self-prepared extract written from the job's contours and points.
#include "cadastre/Autoallestito.h"

#include <algorithm>

#include "cadastre/Estratto.h"
#include "cadastre/Pregeo.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

namespace {

// A contour's field is a vertex when it names a point: a number or a fiducial point; the
// other fields are the line codes.
bool CampoVertice(const std::string& campo) { return Val(campo) > 0 || IniziaCon(campo, "PF"); }

std::vector<std::string> Vertici(const std::string& contorno) {
  std::vector<std::string> v;
  for (const std::string& campo : Dividi(contorno, '|'))
    if (CampoVertice(campo)) v.push_back(campo);
  return v;
}

// The first live picture of the drawing: the raster the extract is drawn on.
int32_t PrimaImmagine(const Sessione& s) {
  for (int32_t k = 0; k < s.ContaEntita[SlotBitmap]; ++k)
    if (IdentVivo(s.BitmapIdent[static_cast<size_t>(k)])) return k;
  return -1;
}

std::string BaseNome(const std::string& nome) {
  std::string n = Rifila(nome);
  if (n.size() > 4 && UgualeSenzaCaso(n.substr(n.size() - 4), ".EMP")) n.resize(n.size() - 4);
  return n;
}

}  // namespace

std::vector<std::string> RigheAutoallestito(const Sessione& s) {
  std::string particelle;
  for (int32_t k = 0; k < s.ContaEntita[SlotSette]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (!IdentVivo(s.SetteIdent[r])) continue;
    const std::vector<std::string> f = Dividi(s.SetteParticella[r], '|');
    particelle += (particelle.empty() ? "" : ",") + (f.size() > 1 ? f[1] : std::string());
  }
  std::vector<std::string> righe{"0|AUTOALLESTITO|0|0|0|" + (particelle.empty() ? "0" : particelle) + "|0|0|0|0|"};
  double x = 0, y = 0, scala = 0;
  if (const int32_t k = PrimaImmagine(s); k >= 0) {
    const auto r = static_cast<size_t>(k);
    x = s.BitmapX[r], y = s.BitmapY[r], scala = s.BitmapScalaLar[r];
  }
  righe.push_back("6|INQUADRAMENTO|" + FormaSemplice(y) + "|" + FormaSemplice(x) + "|" +
                  Sostituisci(FormatoMaschera(scala, "#0.00000000"), ",", ".") + "|0|0|0|");
  for (int32_t k = 0; k < s.ContaEntita[SlotPunti]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (!IdentVivo(s.PuntoIdent[r])) continue;
    righe.push_back("8|" + AllineaADestra(s.PuntoNome[r] + "%", 10) + "|" +
                    FormatoMaschera(s.PuntoY[r], "########0.000") + "|" + FormatoMaschera(s.PuntoX[r], "#########0.000") +
                    "|");
  }
  // Every blank goes from the rows made so far, the padding of the names with it; the
  // contours come after and keep theirs, so that a name with a blank inside no longer
  // meets its row 8. Pregeo reads the file so.
  for (std::string& riga : righe) std::erase(riga, ' ');
  for (int32_t k = 0; k < s.ContaEntita[SlotSette]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (!IdentVivo(s.SetteIdent[r])) continue;
    const std::vector<std::string> v = Vertici(s.SetteContorno[r]);
    std::string riga = "7|" + std::to_string(v.size()) + "|";
    for (const std::string& nome : v) riga += nome + "%|";
    righe.push_back(riga + "NC|");
  }
  return righe;
}

std::optional<std::string> ScriviAutoallestito(Sessione& s, const std::string& nome) {
  s.RoutineCorrente = "autoallestito";
  const std::string base = PercorsoEstratti(s, BaseNome(nome));
  std::string testo;
  for (const std::string& riga : RigheAutoallestito(s)) testo += riga + "\r\n";
  const bool fatto = Protetto(s, [&] {
    NuovaCartella(Cartella(base));
    ScriviTesto(base + ".emp", testo);
    if (const int32_t k = PrimaImmagine(s); k >= 0) {
      const std::string immagine = NormalizzaPercorso(s.BitmapNomeFile[static_cast<size_t>(k)]);
      if (const auto da = TrovaFile(immagine)) CopiaFile(*da, base + ".PNG");
    }
  });
  if (!fatto) return std::nullopt;
  return base + ".emp";
}

void AzioneAutoallestito(Sessione& s) {
  const auto nome = s.Ui->Imputa("Nome Estratto Autoallestito :", "Autoallestito", "Autoallestito.EMP");
  if (!nome || BaseNome(*nome).empty()) return;
  const auto percorso = ScriviAutoallestito(s, *nome);
  if (!percorso) return;
  s.Ui->Messaggio("Estratto Autoallestito : " + BaseNome(*nome) + "\nGenerato in Pregeo", "Autoallestito",
                  Icona::Informazione);
  AzionePregeo(s);
}

}  // namespace varena
