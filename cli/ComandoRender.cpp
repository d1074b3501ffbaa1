// render: the job painted as the program paints it, into a PNG or an SVG file.
#include <QImage>
#include <cstdlib>
#include <fstream>
#include <memory>

#include "ApplicazioneRender.h"
#include "Comandi.h"
#include "SuperficieQt.h"
#include "SuperficieSvg.h"
#include "Terminale.h"
#include "core/Conversioni.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "view/Rigenera.h"
#include "view/Ridisegna.h"

namespace varena::cli {

namespace {

bool LeggiDimensioni(const std::string& testo, int& l, int& a) {
  const auto x = testo.find_first_of("xX");
  if (x == std::string::npos) return false;
  l = InteroSaturato<int>(Val(testo.substr(0, x)));
  a = InteroSaturato<int>(Val(testo.substr(x + 1)));
  return l >= 16 && a >= 16 && l <= 20000 && a <= 20000;
}

int ComandoRender(const Argomenti& a, std::ostream& out, std::ostream& err) {
  const char* uso = "uso: varena-cli render LAVORO[.CFG] USCITA.png|USCITA.svg [--size LxA] [--view E,N,ALTEZZA]\n";
  if (a.Posizionali.size() != 2) {
    err << uso;
    return 64;
  }
  const std::string uscita = a.Posizionali[1];
  const std::string estensione = Maiuscolo(uscita.size() > 4 ? uscita.substr(uscita.size() - 4) : "");
  if (estensione != ".PNG" && estensione != ".SVG") {
    err << "Formato di uscita non riconosciuto (png o svg): " << uscita << "\n";
    return 64;
  }
  int larghezza = 1600, altezza = 1000;
  if (a.Ha("--size") || !a.Valore("--size").empty()) {
    if (!LeggiDimensioni(a.Valore("--size"), larghezza, altezza)) {
      err << "Dimensioni non valide: " << a.Valore("--size") << "\n" << uso;
      return 64;
    }
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  const std::string vista = a.Valore("--view");
  if (!vista.empty()) {
    const auto v = Dividi(vista, ',');
    if (v.size() != 3 || Val(v[2]) <= 0) {
      err << "Vista non valida: " << vista << "\n" << uso;
      return 64;
    }
    s.Vista.CentroEst = Val(v[0]);
    s.Vista.CentroNord = Val(v[1]);
    s.Vista.AltezzaVista = Val(v[2]);
  }
  AssicuraApplicazione();
  auto dipingi = [&s](Superficie& sup) {
    s.Schermo = &sup;
    RigeneraLista(s);
    Ridisegna(s);
    s.Schermo = nullptr;
  };
  bool scritto = false;
  if (estensione == ".PNG") {
    QImage img(larghezza, altezza, QImage::Format_RGB32);
    {
      SuperficieQt sup(&img, larghezza, altezza, 96);
      dipingi(sup);
    }
    scritto = img.save(QString::fromUtf8(uscita.c_str()), "PNG");
  } else {
    SuperficieSvg sup(larghezza, altezza, 96);
    dipingi(sup);
    const std::string documento = sup.Documento(s.NomeOriginale);
    std::ofstream f(uscita, std::ios::binary | std::ios::trunc);
    f.write(documento.data(), static_cast<std::streamsize>(documento.size()));
    f.close();
    scritto = !f.fail();
  }
  if (!scritto) {
    err << "Impossibile scrivere " << uscita << "\n";
    return 1;
  }
  out << "Scritto " << uscita << " (" << larghezza << "x" << altezza << ", vista E "
      << FormatoMaschera(s.Vista.CentroEst, "#########0.000") << " N " << FormatoMaschera(s.Vista.CentroNord, "#########0.000")
      << " altezza " << FormatoMaschera(s.Vista.AltezzaVista, "#########0.000") << ")\n";
  return ui.Errori ? 2 : 0;
}

const RegistraComando kRender("render", "render LAVORO[.CFG] USCITA.png|USCITA.svg [--size LxA] [--view E,N,ALTEZZA]",
                              ComandoRender, {"--size", "--view"});

}  // namespace

}  // namespace varena::cli
