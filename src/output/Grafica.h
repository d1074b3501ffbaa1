// `Grafica`: the preview control's content and view, without any widget. A dialog feeds it
// points, lines and parcel names row by row; it zooms on its own, finds the nearest item,
// and exports a DXF, a plot stream and an HTML page with a canvas.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;
class Grafica;

// What a dialog of the program shows in its preview: the map extract of the job in
// "FormConfiguraEstratto", the vertices taken so far in "ContornoSette". False for a dialog
// that has no preview.
bool AnteprimaDialogo(const Sessione& s, std::string_view dialogo, Grafica& g);

class Grafica {
 public:
  struct Punto {
    double Est = 0, Nord = 0;
    std::string Nome;
    std::string Tipo;  // one of the kinds of `kTipiPunto`, as "NC"
    int32_t Colore = 0;
  };
  struct Linea {
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    int32_t Tipo = 0;  // 0 plain, 1 and 2 the two dashed kinds
  };
  struct Nome {
    double Est = 0, Nord = 0;
    std::string Testo;
  };
  // The nine kinds of a point: the last letter its class (C station, T trig point, P plain
  // point), the first its group.
  static constexpr const char* kTipiPunto = "|NC|NT|NP|RC|RT|RP|VC|VT|VP|";

  const std::vector<Punto>& Punti() const { return punti_; }
  const std::vector<Linea>& Linee() const { return linee_; }
  const std::vector<Nome>& Nomi() const { return nomi_; }
  double CentroEst = 0, CentroNord = 0, Altezza = 100;
  double Rapporto = 1;  // width over height of the control
  std::vector<std::string> Errori;

  // What the control shows and exports: the points' names, the parcel names, the fiducial
  // points (named "PF..."). Kept per user as "NOMISINO", "TOPONIMISINO", "PFSINO" in the
  // section "CONFIGURA_GRAFICA1", "1" or "0".
  bool MostraNomi = true, MostraToponimi = true, MostraPF = true;
  void LeggiOpzioni(Sessione& s);
  void ScriviOpzioni(Sessione& s) const;
  // A point drawn and exported under the options.
  bool Visibile(const Punto& p) const;

  void MostraErrore(std::string_view testo) { Errori.emplace_back(testo); }
  void VR_ZoomTutto();
  void VR_ZoomPiu() { Altezza /= 2; }
  void VR_ZoomMeno() { Altezza *= 2; }
  // A pan of a quarter of the view.
  void VR_ZoomUP() { CentroNord += Altezza / 4; }
  void VR_ZoomDown() { CentroNord -= Altezza / 4; }
  void VR_ZoomLeft() { CentroEst -= Altezza * Rapporto / 4; }
  void VR_ZoomRight() { CentroEst += Altezza * Rapporto / 4; }
  void CentraMouse(double est, double nord) { CentroEst = est, CentroNord = nord; }

  // A kind outside the nine is kept as "NP", a plain point.
  void VR_AggiungiPuntoGraf(double est, double nord, std::string_view nome, std::string_view tipo, int32_t colore);
  // False (and an error kept) when a name is not among the points.
  bool VR_AggiungiLineaGraf(std::string_view nome1, std::string_view nome2, int32_t tipo = 0);
  void VR_AggiungiLineaGraf2Punti(double x1, double y1, double x2, double y2, int32_t tipo = 0);
  void VR_AggiungiNomeParticella(double est, double nord, std::string_view testo);
  void VR_Clear();

  // `AggiungiGrafica`: the rows of a list, each split at "|", its first field its kind:
  // "%" a station, "*" a trig point, "#" a plain point ("%|name|East|North|"); "8" a
  // field-book coordinate row ("8|name|North|East|", a name starting with "*" a trig point);
  // "PV" a point kept with the kind "PV"; "@" a parcel name ("@|text|East|North|"); "L" a
  // line between two named points ("L|name|name|"). Any other row is passed over. A row of a
  // known kind whose numbers are missing is kept as an error, the others go on. Returns the
  // rows taken.
  int AggiungiGrafica(const std::vector<std::string>& righe);

  // The mouse tag armed on the control: "NUOVOPUNTO" adds a point where it is clicked,
  // "PUNTOMEDIO" the mid-point of the points nearest to two clicks, "CONTORNOROSSO" and
  // "CONTORNONERO" draw a contour click by click (red, black) and write each of its
  // corners to TEMP/CONTORNO.TXT of the working root. Empty: clicks do nothing.
  std::string TagMouse;
  void ClicMouse(Sessione& s, double est, double nord);

  // The hand-over file "temp/CopiaInFile.TXT" of the working root, read by the paste from
  // file into the job and by `VR_CaricaXVR`: one statement a row, "<PUNTO>" and "<LINEA>"
  // with the items of the whole-job text. A point comes as a new point of its class (the
  // stations by their kind, the trig points and the "PF" as fiducial points), on the current
  // layer; a line with the drawing's defaults. `ApriCopiaInFile` starts the file,
  // `SalvaPuntoCopiaInFile` and `SalvaLineaCopiaInFile` add a statement, `ChiudiCopiaInFile`
  // writes it whole (beside and renamed, as every write); `VR_CopiaInFile` hands over all that
  // the control shows; `AggiungiPuntoAFile` adds one point to the file as it stands.
  void ApriCopiaInFile();
  void SalvaPuntoCopiaInFile(const Sessione& s, const Punto& p);
  void SalvaLineaCopiaInFile(const Sessione& s, const Linea& l);
  bool ChiudiCopiaInFile(Sessione& s);
  bool VR_CopiaInFile(Sessione& s);
  bool AggiungiPuntoAFile(Sessione& s, const Punto& p);

  // The loaders, each adding to what the control holds and then fitting the view to it.
  // `VR_CaricaXVR`: the "<PUNTO>" (name, East, North) and "<LINEA>" statements of a
  // whole-job text or of a hand-over file. `VR_CaricaEstratto_EMP`: a map extract, its
  // named vertices as points, its sides as lines, its texts as parcel names. False, with the
  // error kept, when the file is absent; a statement whose numbers do not read is kept as an
  // error and the others go on.
  bool VR_CaricaXVR(Sessione& s, const std::string& percorso);
  bool VR_CaricaEstratto_EMP(Sessione& s, const std::string& percorso);
  void CaricaEstratto(std::string_view testo);
  // The job's field book: its stations (rows 1) and points (rows 2) where the job has them,
  // the points of its coordinate rows 8, and its contours (rows 7) as lines, dashed by their
  // code's line letter (C plain, T dashed, P dotted). The job is only read.
  void CaricaLibretto(const Sessione& s);

  double DistanzaDuePuntiNuova(size_t a, size_t b) const;
  Punto PuntoMedio(size_t a, size_t b) const;
  // The point nearest to (est, nord); none when there are no points.
  std::optional<size_t> VR_IlPiuVicinoAlMouse(double est, double nord) const;

  // The font of a caption: "Courier New", except "Arial Narrow" for a row of kind "L"
  // whose text is of kind "T".
  static std::string FontDidascalia(std::string_view tipoRiga, std::string_view tipoTesto);

  // The exports, as text, and written where the program keeps them.
  std::string TestoDXF() const;
  std::string TestoStampa() const;
  std::string TestoHTML() const;
  bool VR_SalvaDXF(Sessione& s) const;
  bool GeneraStampa(Sessione& s) const;
  bool GeneraHTML5_CANVAS(Sessione& s) const;

 private:
  std::vector<Punto> punti_;
  std::vector<Linea> linee_;
  std::vector<Nome> nomi_;
  // The click before, for the contours and the mid-point.
  std::optional<std::pair<double, double>> clicPrima_;
  std::string tagPrima_;
  std::string copia_;  // the statements of the hand-over file not yet written
};

}  // namespace varena
