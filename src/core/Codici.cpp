// Loading of the point codes and of the note archive.
#include "core/Codici.h"

#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Lista.h"
#include "core/Testo.h"

namespace varena {

const char* const kTestoCodici =
    "\"1\",\"CHIODO MINIATO\"\r\n"
    "\"2\",\"PICCHETTO IN LEGNO\"\r\n"
    "\"3\",\"PICCHETTO IN FERRO\"\r\n"
    "\"4\",\"TOMBINO ENEL\"\r\n"
    "\"5\",\"TOMBINO SIP\"\r\n"
    "\"6\",\"S.F.\"\r\n"
    "\"7\",\"C.S.\"\r\n"
    "\"8\",\"ASSE STRADA\"\r\n"
    "\"9\",\"ASSE FOSSO\"\r\n"
    "\"10\",\"CIGLIO STRADA\"\r\n"
    "\"12\",\"POLLAIO\"\r\n"
    "\"13\",\"CANTINA\"\r\n"
    "\"14\",\"ASSE CAMPANILE\"\r\n";

const char* const kTestoArchivioNote =
    "FABBRICATO DA INSERIRE\r\n"
    "NUOVA DIVIDENTE\r\n"
    "CONFINE\r\n"
    "FABRICATO ESISTENTE\r\n"
    "NUOVA COSTRUZIONE\r\n"
    "RECINZIONE\r\n"
    "CONTORNO FABBRICATO\r\n"
    "ASSE FOSSO\r\n";

namespace {

void LeggiCodici(const std::string& testo, TabellaCodici& t) {
  LettoreLista in(testo);
  while (!in.Fine()) {
    if (static_cast<int>(t.Righe.size()) >= kMassimoCodici) throw ErroreVarena(kErroreIndice);
    CodicePunto c;
    c.Codice = in.LeggiTesto();
    c.Descrizione = in.LeggiTesto();
    t.Righe.push_back(std::move(c));
  }
}

void LeggiNote(const std::string& testo, ArchivioNote& a) {
  for (const std::string& riga : RigheTesto(testo))
    if (!Rifila(riga).empty()) a.Note.push_back(riga);
}

}  // namespace

std::string PercorsoCodici(const Sessione& s) { return s.CartellaLavoro + "VRPUNTI.COD"; }

void CaricaCodici(Sessione& s, const std::string& percorso) {
  CaricaTabellaTesto(s, "CaricaCodici", "VRPUNTI.COD", percorso, kTestoCodici, s.Codici, LeggiCodici,
                     [](const TabellaCodici& t) { return t.Righe.empty(); });
}

const CodicePunto* CercaCodice(const TabellaCodici& t, const std::string& codice) {
  for (const CodicePunto& c : t.Righe)
    if (c.Codice == codice) return &c;
  return nullptr;
}

std::string PercorsoArchivioNote(const Sessione& s) { return s.CartellaLavoro + "ArchivioNote.ini"; }

void CaricaArchivioNote(Sessione& s) {
  CaricaTabellaTesto(s, "CaricaArchivioNote", "ArchivioNote.ini", PercorsoArchivioNote(s), kTestoArchivioNote,
                     s.Note, LeggiNote, [](const ArchivioNote& a) { return a.Note.empty(); });
}

}  // namespace varena
