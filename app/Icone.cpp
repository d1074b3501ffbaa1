#include "Icone.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <utility>

namespace varena {

namespace {

// The colour of what a command makes or finds, the same in every theme; the rest of a
// drawing is in the palette's text colour.
constexpr const char* kAccento = "#e8590c";

struct IconaDiTag {
  std::string_view Tag;
  const char* Nome;
};

// Variants of one command share its drawing (the map scales of an image, the label sizes).
constexpr IconaDiTag kIcone[] = {
    // File
    {"NUOVO_VUOTO", "nuovo"}, {"APRI_ESISTENTE", "apri"}, {"APRI_DA_ARCHIVIO", "apri-archivio"}, {"CARDI", "apri-archivio"},
    {"RIAPRI_DISEGNO", "riapri"}, {"GESTIONE_DISEGNI", "gestione-disegni"}, {"SALVA_VELOCE", "salva"},
    {"SALVA_CON_NOME", "salva-nome"}, {"COPIA_IN_FILE", "copia-in-file"}, {"INCOLLA_DA_FILE", "incolla-da-file"},
    {"ESPORTA_DXF", "esporta-dxf"}, {"CARICA_DXF", "importa-dxf"},
    {"ESPORTAXYZ", "esporta-dxf"}, {"ESPORTAINCSV", "esporta-dxf"}, {"ESPORTAINRAW", "esporta-dxf"},
    {"ESPORTAINCSV1", "esporta-dxf"}, {"GENERAPUNTIRIL", "esporta-dxf"}, {"ESPORTAINSCRIPT", "esporta-selezione"},
    {"DACAD", "testo-appunti"}, {"INCOLLAPUNTIDAEXCEL", "testo-appunti"},
    {"CARICA_CXF", "importa-cxf"}, {"CARICA_TAF", "importa-taf"}, {"CARICA_PUNTI_RIL", "importa-punti"}, {"CARICA_PUNTI_SHO", "importa-punti"},
    {"CARICA_PUNTI_GSI", "importa-punti"}, {"CARICA_PUNTI_ASC", "importa-punti"}, {"CARICA_PUNTI_TXT", "importa-punti"}, {"IMPORTA_NUVOLA", "importa-nuvola"}, {"CARICA_VR4", "importa-punti"}, {"IMPORTA_XVR", "importa-punti"}, {"TESTO_IN_PUNTO", "testo-in-punto"}, {"ESPORTA_SELEZIONE", "esporta-selezione"},
    {"ANTEPRIMA_STAMPA", "anteprima-stampa"}, {"SPESSORI_STAMPA", "spessori-stampa"}, {"ANTEPRIMA_FOGLIO", "anteprima-foglio"},
    {"CONFIGURAZIONE", "configurazione"}, {"ORIGINE_FOGLIO", "origine-foglio"},
    // Edit
    {"ANNULLA", "annulla"}, {"REDO", "ripristina"}, {"INTERROMPI_COMANDO", "interrompi"},
    {"EDIT_MODIFICA", "modifica"}, {"EDIT_CAMBIA_NOME", "cambia-nome"}, {"EDIT_SPOSTA_NOME", "sposta-nome"},
    {"EDIT_SPOSTAPUNTO", "sposta-punto"}, {"NOME_SCAMBIO", "scambia-nomi"}, {"EDIT_ENTITA", "modifica-entita"},
    {"EDIT_CONFIGURA_TUTTO", "configura-tutto"},
    // View
    {"N", "nomi"}, {"Q", "quote"}, {"W", "descrizioni-punti"}, {"S", "simboli"}, {"L", "linee"},
    {"A", "pf-stazioni"}, {"GESTIONE_PIANI", "gestione-piani"}, {"MENU_PIANI", "piani"},
    {"MENU_TRATTEGGI", "tratteggi"}, {"MENU_DESCRIZIONI", "codici"}, {"CONGELA_SCONGELA_SIMBOLI", "congela-simboli"},
    {"FONT_DEFAULT", "carattere"}, {"TUTTI", "tutti"},
    // Zoom
    {"ZOOM_TUTTO", "zoom-tutto"}, {"ZOOM_FINESTRA", "zoom-finestra"}, {"ZOOM_SPOSTA", "zoom-sposta"},
    {"ZOOM_CENTRO", "zoom-centro"}, {"ZOOM_RIQUADRO", "zoom-riquadro"}, {"ZOOM_SCALA", "zoom-scala"},
    {"ZOOM_RICHIAMA_MEMO", "zoom-richiama"}, {"ZOOM_MEMORIZZA", "zoom-memorizza"},
    {"ZOOM_ESTRATTO", "zoom-estratto"}, {"ZOOM_SU", "zoom-su"}, {"ZOOM_GIU", "zoom-giu"},
    {"ZOOM_SIN", "zoom-sinistra"}, {"ZOOM_DES", "zoom-destra"}, {"ZOOM_+", "zoom-avanti"},
    {"ZOOM_-", "zoom-indietro"}, {"ZOOM_PRECEDENTE", "zoom-precedente"}, {"RIDISEGNA", "ridisegna"},
    {"RIGENERA", "rigenera"}, {"ZOOM_CENTRO_DI", "zoom-centro-contorno"},
    // Drawing
    {"DISEGNA_LINEA_LIBERA", "linea"}, {"DISEGNA_LINEA_2_P", "linea-2p"}, {"DISEGNA_LINEA_PROIETTA", "linea-proietta"},
    {"DISEGNA_LINEA_PERPENDA", "linea-perpendicolare"}, {"DISEGNA_LINEA_ALLUNGA", "allunga-linea"},
    {"DISEGNA_LINEA_LUNGHEZZA", "lunghezza-linea"}, {"DISEGNA_LINEA_ESTREMO", "linea-estremo"},
    {"RETTANGOLO", "rettangolo"}, {"SQUADRATO", "squadrato"}, {"ESTREMI_LINEA", "ortogonali-estremi"},
    {"ASSE_LINEA", "asse-linea"}, {"CHIUDI_QUADRILATERO", "chiudi-quadrilatero"}, {"DISEGNA_PARALLELA", "parallela"},
    {"PARALLELA_PER_PUNTO", "parallela-punto"}, {"DISEGNA_CERCHIO_3_P", "cerchio-3p"},
    {"CERCHIO_CENTRO_RAGGIO", "cerchio-centro-raggio"}, {"CERCHIO_CENTRO_TANGENTE", "cerchio-centro-tangente"},
    {"CERCHIO_DIAMETRO", "cerchio-diametro"}, {"CERCHIO_INSCRITTO", "cerchio-inscritto"},
    {"DISEGNA_ARCO_3_P", "arco-3p"}, {"ARCO_CENTRO_INIZIO_FINE", "arco-centro"}, {"ARCO_IN_CERCHIO", "arco-in-cerchio"},
    {"ARCO_RACCORDO", "arco-raccordo"}, {"SERIE_LINEARE", "serie-lineare"}, {"SERIE_ALLINEATA", "serie-allineata"},
    {"SERIE_CIRCOLARE", "serie-circolare"}, {"SERIE_RETTANGOLARE", "serie-rettangolare"}, {"DISEGNA_TESTO", "testo"},
    {"DISEGNA_TESTO_DA_APPUNTI", "testo-appunti"}, {"DISEGNA_TESTO_DA_FILE", "testo-file"},
    {"TESTO_DISTANZA", "testo-distanza"}, {"QUOTATURA_PROGRESSIVA", "quotatura-progressiva"},
    {"TESTO_ALLINEA", "allinea-testo"}, {"DISEGNA_FUMETTO", "fumetto"}, {"DISEGNA_CAMPITURA", "campitura"},
    {"DISEGNA_PERCORSO", "percorso"}, {"CONTORNODAPUNTOINTERNO", "contorno-punto-interno"},
    {"GESTIONE_GRUPPI", "gruppi"}, {"DISEGNA_LINEA_DISCONTINUITA", "linea-discontinuita"},
    // Points: the survey constructions
    {"DISEGNA_PUNTO", "nuovo-punto"}, {"PUNTO_BILATERA", "bilatera"}, {"PUNTO_STAZIONE_LIBERA", "stazione-libera"},
    {"PUNTO_PIEDE", "piede"}, {"PUNTO_APERTURA", "apertura"}, {"PUNTO_SQUADRO", "squadro"},
    {"IRRAGGIAMENTO", "irraggiamento"}, {"PUNTO_INCROCIO", "incrocio"}, {"PUNTO_MEDIO", "medio"},
    {"PUNTO_IN_AVANTI", "in-avanti"}, {"PUNTO_TANGENTE", "tangente"}, {"POLARI_CARTESIANE", "polari-cartesiane"},
    {"PUNTO_DISTANZA", "punto-distanza"}, {"PUNTO_PARALLELA", "punto-parallela"},
    {"INTERSECA_DIREZIONE", "interseca-direzione"}, {"TRACCIAMENTO", "tracciamento"}, {"POTHENOT", "pothenot"},
    {"FUORI_CENTRO", "fuoricentro"}, {"DIVISIONE_AREE_2_PUNTI", "divisione-aree"},
    {"DIVISIONE_AREE_ROTAZIONE", "divisione-aree-rotazione"}, {"TRIANGOLI", "triangoli"}, {"COPIA_QUOTA", "copia-quota"},
    {"PUNTO_VERTICE", "punto-vertice"}, {"PUNTO_DIREZIONE", "punto-direzione"},
    {"PUNTI_ESTREMO_LINEE", "punti-estremo-linee"}, {"INCOLLA_DESCRIZIONE", "incolla-descrizione"},
    {"H_PRIS_STAZ", "altezze-strumento"}, {"ALTEZZA_NOME", "altezza-etichetta"},
    {"ALTEZZA_QUOTA", "altezza-etichetta"}, {"ALTEZZA_DESCRIZIONE", "altezza-etichetta"},
    {"ALTEZZA_SIMBOLO", "altezza-simbolo"}, {"DN+", "nomi-piu"}, {"DN-", "nomi-meno"}, {"DS+", "simboli-piu"},
    {"DS-", "simboli-meno"}, {"INCOLLA_SIMBOLO", "incolla-simbolo"}, {"PUNTO_ELIMINA", "elimina-punti"},
    {"SIMBOLO_NUOVO", "nuovo-simbolo"}, {"GESTIONE_SIMBOLI", "selezione-simbolo"},
    // Edit of entities
    {"CAMBIA_ELIMINA", "elimina"}, {"CAMBIA_SPOSTA", "sposta"}, {"CAMBIA_COPIA", "copia"}, {"CAMBIA_RUOTA", "ruota"},
    {"CAMBIA_SPECCHIO", "riflessione"}, {"CAMBIA_SCALA", "scala"}, {"CAMBIA_ALLINEA", "allinea"},
    {"CAMBIA_TAGLIA", "taglia"}, {"CAMBIA_ALLUNGA", "allunga"}, {"CAMBIA_RIFILA", "rifila"},
    {"CAMBIA_DIVIDE", "divide"}, {"CAMBIA_CONGELA", "congela"}, {"CAMBIA_SCONGELA", "scongela"},
    {"CAMBIA_PIANO", "piano"}, {"INCOLLA_PIANO", "incolla-piano"}, {"INCOLLA_PIANO_SINGOLO", "piano-singolo"},
    {"CAMBIA_TRATTEGGIO", "tratteggio"}, {"INCOLLA_TRATTEGGIO_SINGOLO", "tratteggio-singolo"},
    {"CAMBIA_COLORE_DEFAULT", "colore"}, {"CAMBIA_COLORE", "colore-corrente"},
    {"INCOLLA_COLORE_SINGOLO", "colore-singolo"}, {"CAMBIA_QUOTA", "quota"}, {"INVERTILINEA", "inverti-linea"},
    {"ESPLODILINEA", "esplodi-linea"}, {"SPEZZALINEAPERPUNTO", "interrompi-linea-punto"},
    {"INTERROMPELINEASUPUNTO", "interrompi-linea-punti"}, {"LINEA_TRONCA", "linea-tronca"},
    {"LINEA_MOSTRA_LUNGHEZZA", "mostra-lunghezza"}, {"ROTAZIONE_VERTICALE", "rotazione-verticale"},
    {"RIBALTAMENTO", "ribaltamento"}, {"ROTOTRASLAZIONE_SELETTIVA", "rototraslazione"},
    {"INQUADRA_2_PF", "inquadra-2-pf"}, {"INQUADRA_N_PF", "inquadra-n-pf"},
    {"SETUP_INQUADRAMENTO", "setup-inquadramento"},
    // Info
    {"INFO_DISTANZA", "distanza"}, {"INFO_DISTANZA_2P", "distanza-2p"}, {"INFO_ANGOLO", "angolo"},
    {"INFO_AREA", "area"}, {"LISTA_ENTITA", "lista-entita"}, {"INFO_ELENCO_PUNTI_TUTTI", "elenco-punti"},
    {"INFO_MISURATE", "misurate"}, {"MISURATE_DA_STAZIONE", "misurate"}, {"VERIFICA_PARALLELE", "verifica-parallele"},
    // Images
    {"DISEGNA_IMMAGINE", "inserisci-immagine"}, {"SPOSTA_BITMAP", "sposta-immagine"}, {"SCALA_500", "scala-immagine"},
    {"SCALA_1000", "scala-immagine"}, {"SCALA_1500", "scala-immagine"}, {"SCALA_2000", "scala-immagine"},
    {"SCALA_4000", "scala-immagine"}, {"FOGLIO_INTERO1", "foglio-intero"}, {"FOGLIO_INTERO2", "foglio-intero"},
    {"IMMAGINE_IN_CIMA", "immagine-in-cima"},
    // Cadastre
    {"LIBRETTO_MISURE", "libretto"}, {"SCHEMA_DA_LIBRETTO", "schema-da-libretto"}, {"CONTORNO_7", "contorno-7"},
    {"ESTRATTI_DI_MAPPA", "estratti"}, {"ESTRATTO_INQUADRAMENTO", "inquadramento-estratto"},
    {"ASSOCIA_ESTRATTO", "associa-estratto"},
    {"GENERA_AUTOALLESTITO", "genera-autoallestito"}, {"ESPLODI_ESTRATTO", "esplodi-estratto"},
    {"SCALA_MAPPA", "scala-mappa"}, {"CONFIGURA_ESTRATTO", "configura-estratto"},
    {"COLORE_ESTRATTO", "colore-estratto"}, {"CONGELA_ESTRATTO", "congela-estratto"},
    {"SCONGELA_ESTRATTO", "scongela-estratto"}, {"PREGEO", "pregeo"}, {"HPS_DA_LIBRETTO", "hps-libretto"},
    {"ASSEGNA_COLORI_PREGEO", "colori-pregeo"}, {"LIBRETTO_DA_DISEGNO", "libretto-da-disegno"},
    {"IMPORTA_DA_PREGEO", "importa-pregeo"}, {"CONVERTE_CAT_FIS", "converti-cat-fis"},
    {"MANUALE_WEB_AUTOALLESTITO", "manuale"}, {"CARICA_DAT", "importa-pregeo"},
    {"PROPOSTA_DA_PREGEO", "importa-pregeo"}, {"IMPORTA_MODULISTICA", "manuale"},
    {"IMPORTA_ELABORAZIONE_PREGEO", "importa-pregeo"},
    {"IMPORTA_ELABORA_DAT_PREGEO", "importa-pregeo"}, {"CALCOLO_GPS", "misurate"},
    // The survey structures share the drawings of their constructions.
    {"DISEGNA_SQUADRI", "squadro"}, {"DISEGNA_COGO", "bilatera"}, {"DISEGNA_POLIGONALE", "contorno-7"},
    {"LIVELLAZIONE_DAL_MEZZO", "contorno-7"}, {"LIVELLAZIONE_RAGGIANTE", "contorno-7"},
    {"DISEGNO_DA_LIBRETTO", "schema-da-libretto"}, {"SELEZIONA_CONTORNO_7", "contorno-7"},
    {"ELIMINA_CONTORNI_7", "elimina"}, {"ELIMINA_SQUADRI", "elimina"},
    {"ELIMINA_LIVELLAZIONI", "elimina"}, {"ELIMINA_PV_PD", "elimina"},
    // Terrain
    {"INTERSECA_FALDE", "interseca-falde"}, {"CATTURA_SPEZZATA", "cattura-spezzata"},
    {"SELEZIONA_TRIANGOLA", "triangola"}, {"TRIANGOLA_AGGIUNGI", "triangola"}, {"TRIPF", "triangola-fiduciali"}, {"FALDE_DA_LINEE", "falde-da-linee"},
    {"AGGIUNGI_FALDE_DA_LINEE", "falde-da-linee"}, {"DEFINIZIONE_FALDA", "falde-da-linee"},
    {"INVERTI_FALDE", "interseca-falde"}, {"VOLUMI_FALDE", "volumi"}, {"GENERA_CURVE", "curve-livello"},
    {"SPLINE_CURVE", "curve-livello"}, {"COLORA_CURVE", "colore"}, {"IMPOSTAZIONI_TERRENO", "configurazione"},
    {"ESPLODI_CURVE_LIVELLO", "esplodi-linea"},
    {"ELIMINA_CURVE_ESPLOSE", "elimina"},
    // Sections
    {"SEZIONI_CATTURA_PUNTI", "cattura-spezzata"}, {"SEZIONI_QUOTA_PROGETTO", "quota"},
    {"SEZIONI_APPLICA_DEFAULT", "configura-tutto"}, {"SEZIONI_SALVA_DEFAULT", "salva"},
    {"SEZIONI_CARICA_DEFAULT", "apri"}, {"SEZIONI_CONFIGURA", "configurazione"},
    {"SEZIONI_EDITA_PUNTI", "modifica-entita"}, {"SEZIONI_SOMMA", "allunga"}, {"SEZIONI_DIVIDI", "divide"},
    {"SEZIONI_IN_SERIE", "serie-allineata"}, {"SEZIONI_IMPAGINA", "anteprima-foglio"},
    {"SEZIONI_COPIA_VALORI", "copia"}, {"SEZIONI_COPIA_IN_FILE", "copia-in-file"},
    {"SEZIONI_PROGETTO_PENDENZA", "quotatura-progressiva"}, {"SEZIONI_PROGETTO_PUNTO", "copia-quota"},
    {"SEZIONI_PROGETTO_INTERPOLA", "medio"},
    {"SEZIONI_DA_LIVELLAZIONE", "quotatura-progressiva"},
    // Tools
    {"CALCOLATRICE", "calcolatrice"}, {"CATTURA_SCHERMO", "cattura-schermo"}, {"ORTOSINO", "orto"},
    // Snap
    {"SNAP_NODO", "snap-nodo"}, {"SNAP_PIEDE", "snap-piede"}, {"SNAP_NEQ", "snap-neq"},
    {"SNAP_VICINO", "snap-vicino"}, {"SNAP_FINE", "snap-fine"}, {"SNAP_CENTRO", "snap-centro"},
    {"SNAP_QUADRANTE", "snap-quadrante"}, {"SNAP_TANGENTE", "snap-tangente"}, {"SNAP_INCROCIO", "snap-incrocio"},
    {"SNAP_TESTO", "snap-testo"}, {"SNAP_POLARE", "snap-polare"}, {"SNAP_APERTURA", "snap-apertura"},
    {"SNAP_MEDIO", "snap-medio"}, {"SNAP_RNEQ", "snap-rneq"}, {"SNAP_LIBERO", "snap-libero"},
    {"MEMO_PUNTO", "memo-punto"}, {"RICHIAMA_MEMO", "richiama-memo"},
};

// Paints one SVG in the colours of the palette at the time of painting: a change of theme
// needs no new icons, only a repaint.
class MotoreIcona : public QIconEngine {
 public:
  MotoreIcona(QString nome, QByteArray svg) : nome_(std::move(nome)), svg_(std::move(svg)) {}

  QIconEngine* clone() const override { return new MotoreIcona(nome_, svg_); }
  bool isNull() override { return svg_.isEmpty(); }
  QString key() const override { return QStringLiteral("varena-svg"); }

  void paint(QPainter* p, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QSvgRenderer r(Colorato(mode));
    r.render(p, QRectF(rect));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    const QColor testo = Colore(mode);
    const QString chiave = QStringLiteral("vr-%1-%2x%3-%4-%5")
                               .arg(nome_)
                               .arg(size.width())
                               .arg(size.height())
                               .arg(testo.rgba())
                               .arg(static_cast<int>(mode));
    QPixmap pm;
    if (QPixmapCache::find(chiave, &pm)) return pm;
    pm = QPixmap(size);
    pm.fill(Qt::transparent);
    {
      QPainter p(&pm);
      paint(&p, QRect(QPoint(0, 0), size), mode, state);
    }
    QPixmapCache::insert(chiave, pm);
    return pm;
  }

 private:
  static QColor Colore(QIcon::Mode mode) {
    const QPalette pal = QGuiApplication::palette();
    return pal.color(mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active, QPalette::WindowText);
  }
  // The SVG with the palette's text colour for `currentColor`; a disabled icon has no accent.
  QByteArray Colorato(QIcon::Mode mode) const {
    QByteArray s = svg_;
    const QByteArray colore = Colore(mode).name().toLatin1();
    s.replace("currentColor", colore);
    if (mode == QIcon::Disabled) s.replace(kAccento, colore);
    return s;
  }

  QString nome_;
  QByteArray svg_;
};

}  // namespace

QString NomeIcona(std::string_view tag) {
  for (const IconaDiTag& i : kIcone)
    if (i.Tag == tag) return QString::fromLatin1(i.Nome);
  return {};
}

QIcon IconaFile(const QString& nome) {
  if (nome.isEmpty()) return {};
  QFile f(QStringLiteral(":/icone/%1.svg").arg(nome));
  if (!f.open(QIODevice::ReadOnly)) return {};
  return QIcon(new MotoreIcona(nome, f.readAll()));
}

QIcon IconaTag(std::string_view tag) { return IconaFile(NomeIcona(tag)); }

}  // namespace varena
