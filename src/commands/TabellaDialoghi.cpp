// The table of dialogs by name, and the dialogs of the commands of this folder.
#include "commands/TabellaDialoghi.h"

#include "cadastre/ComandiContorno.h"
#include "cadastre/ComandiEstratto.h"
#include "commands/Comandi.h"
#include "commands/ComandiGruppi.h"
#include "commands/DialoghiDisegno.h"
#include "commands/DialoghiScelta.h"
#include "commands/RoutineCostruzione.h"
#include "commands/DialoghiSelezione.h"
#include "commands/RoutineModifica.h"
#include "core/Dialoghi.h"
#include "core/DialogoConfigura.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/DxfDialoghi.h"
#include "exchange/DxfTestiInPunto.h"
#include "output/DialogoSpessori.h"
#include "survey/Primitive.h"
#include "terrain/Curve.h"
#include "terrain/ImpostazioniTerreno.h"
#include "terrain/Volumi.h"
#include "survey/DialoghiCalcoli.h"
#include "view/Zoom.h"

namespace varena {

namespace {

constexpr SchedaDialogo kDialoghi[] = {
    {"NuovoPunto", ApriNuovoPunto},
    {"FormConfiguraTutto", ApriFormConfiguraTutto},
    {"ZoomScala", ApriZoomScala},
    {"ProprietaTesto", ApriProprietaTesto},
    {"FormSelezionaImmagine", ApriFormSelezionaImmagine},
    {"Imputa2", ApriImputa2},
    {"ParametriSerie", ApriParametriSerie},
    {"FormSelezionaContorno", ApriFormSelezionaContorno},
    {"ContornoSette", ApriContornoSette},
    {"SpostaInquadramento", ApriSpostaInquadramento},
    {"SelezionaContorno7", ApriSelezionaContorno7},
    // The measures of the point constructions, opened at their last click.
    {"PuntoBilatera", ApriPuntoBilatera},
    {"StazioneLibera", ApriStazioneLibera},
    {"PuntoPiede", ApriPuntoPiede},
    {"PuntoApertura", ApriPuntoApertura},
    {"PuntoSquadro", ApriPuntoSquadro},
    {"Irraggiamento", ApriIrraggiamento},
    {"PuntoInAvanti", ApriPuntoInAvanti},
    {"PolariCartesiane", ApriPolariCartesiane},
    {"IntersecaDirezione", ApriIntersecaDirezione},
    {"PuntoDistanza", ApriPuntoDistanza},
    // The office computations.
    {"Triangoli", ApriTriangoli},
    {"CalcoloPothenot", ApriCalcoloPothenot},
    {"FormDivisioneAree", ApriFormDivisioneAree},
    {"FormTracciamento", ApriFormTracciamento},
    {"FormFuoricentro", ApriFormFuoricentro},
    {"FormInquadraPF", ApriInquadraPF},
    {"SetupInquadramento", ApriSetupInquadramento},
    {"Selezentita", ApriSelezentita},
    {"SelezPerPiano", ApriSelezPerPiano},
    {"SelezPunti", ApriSelezPunti},
    {"DN", ApriDN},
    {"FormRotoTraslazione", ApriRotoTraslazione},
    {"GestioneGruppi", ApriGestioneGruppi},
    {"MenuSimboli", ApriMenuSimboli},
    // The pickers of the current layer, line type and colour.
    {"MenuPiani", ApriMenuPiani},
    {"MenuTratteggi", ApriMenuTratteggi},
    {"FormSelezColore", ApriFormSelezColore},
    {"FormSelezSpessore", ApriFormSelezSpessore},
    // The DXF export, and the texts into points after an import.
    {"EsportaDxf", ApriEsportaDxf},
    {"FormTestoInPunto", ApriFormTestoInPunto},
    {"FormConvertiAutomatico", ApriConvertiAutomatico},
    // The terrain.
    {"VolumiFalde", ApriVolumiFalde},
    {"FormColoraCurve", ApriFormColoraCurve},
    {"FormImpostazioniTerreno", ApriFormImpostazioniTerreno},
    {"frmSplines", ApriFrmSplines},
};

}  // namespace

std::string PrimoNomeProposto(const Sessione& s) {
  for (int32_t r = s.ContaEntita[SlotPunti] - 1; r >= 0; --r)
    if (IdentVivo(s.PuntoIdent[static_cast<size_t>(r)])) {
      const std::string n = ProssimoNomePunto(s, Rifila(s.PuntoNome[static_cast<size_t>(r)]), true, "1");
      if (!n.empty()) return n;
    }
  return ProssimoNomePunto(s, "0", true, "1");
}

std::span<const SchedaDialogo> TabellaDialoghi() { return kDialoghi; }

bool DialogoDisponibile(std::string_view nome) {
  for (const SchedaDialogo& d : kDialoghi)
    if (UgualeSenzaCaso(d.Nome, nome)) return true;
  return false;
}

bool ApriDialogoDiTabella(Sessione& s, std::string_view nome) {
  for (const SchedaDialogo& d : kDialoghi)
    if (UgualeSenzaCaso(d.Nome, nome)) return d.Apri(s);
  return true;
}

bool ApriNuovoPunto(Sessione& s) {
  Dialogo d;
  d.Nome = "NuovoPunto";
  d.Titolo = "Nuovo Punto";
  d.AggiungiCampo("Nome", "Nome :", PrimoNomeProposto(s))
      .AggiungiCampo("Descrizione", "Descrizione :")
      .AggiungiCampo("Piano", "Piano :", s.PianoCorrente)
      .AggiungiCampo("Automatico", "Numerazione Automatica (1/0) :", "1")
      .AggiungiCampo("Passo", "Incremento :", "1");
  // The next click names the point from the nearest one instead of placing one.
  d.AggiungiBottone("Prendi", "Prendi Nome", [](Sessione& x) { x.PuntoInDialogo = 1; });
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) {
    ChiudiDialogo(x, "NuovoPunto");
    if (x.ComandoCorrente == 1) InterrompiComando(x);
  });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

bool ApriZoomScala(Sessione& s) {
  Dialogo d;
  d.Nome = "ZoomScala";
  d.Titolo = "Zoom Scala";
  std::string elenco;
  for (double h : AltezzeZoomScala()) elenco += VoceZoomScala(h) + "\n";
  d.AggiungiCampo("Altezza", "Altezza della vista (m) :", Rifila(FormatoMaschera(s.Vista.AltezzaVista, "#########0.###")));
  d.AggiungiCampo("Elenco", "", elenco);
  d.AggiungiBottone("OK", "OK", [](Sessione& x) {
    const std::string testo = TrovaDialogo(x, "ZoomScala")->Valore("Altezza");
    ChiudiDialogo(x, "ZoomScala");
    EseguiSeguito(x, ZoomScalaTesto(x, testo));
  });
  // The buttons of index 2 to 10 give their heights at once.
  static constexpr const char* kBottoni[] = {"50", "100", "200", "500", "1000", "2000", "4000", "5000", "10000"};
  for (int i = 0; i < 9; ++i)
    d.AggiungiBottone(kBottoni[i], kBottoni[i], [i](Sessione& x) {
      ChiudiDialogo(x, "ZoomScala");
      EseguiSeguito(x, ZoomScalaBottone(x, i + 2));
    });
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, "ZoomScala"); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

}  // namespace varena
