// The open dialogs of the session and what the user does with them.
#include "core/Dialoghi.h"

#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

CampoDialogo* Dialogo::Campo(std::string_view nome) {
  for (CampoDialogo& c : Campi)
    if (UgualeSenzaCaso(c.Nome, nome)) return &c;
  return nullptr;
}

const CampoDialogo* Dialogo::Campo(std::string_view nome) const {
  for (const CampoDialogo& c : Campi)
    if (UgualeSenzaCaso(c.Nome, nome)) return &c;
  return nullptr;
}

std::string Dialogo::Valore(std::string_view nome) const {
  const CampoDialogo* c = Campo(nome);
  return c ? c->Testo : std::string();
}

double Dialogo::Numero(std::string_view nome) const {
  const CampoDialogo* c = Campo(nome);
  if (!c) return 0;
  return c->VirgolaAlTasto ? Val(c->Testo) : Val(VirgolaInPunto(c->Testo));
}

const BottoneDialogo* Dialogo::Bottone(std::string_view nome) const {
  for (const BottoneDialogo& b : Bottoni)
    if (UgualeSenzaCaso(b.Nome, nome)) return &b;
  return nullptr;
}

Dialogo& Dialogo::AggiungiCampo(std::string nome, std::string etichetta, std::string testo) {
  CampoDialogo c;
  c.Nome = std::move(nome);
  c.Etichetta = std::move(etichetta);
  c.Testo = std::move(testo);
  Campi.push_back(std::move(c));
  return *this;
}

Dialogo& Dialogo::AggiungiDato(std::string nome, std::string etichetta, std::string testo) {
  AggiungiCampo(std::move(nome), std::move(etichetta), std::move(testo));
  Campi.back().SoloLettura = true;
  return *this;
}

Dialogo& Dialogo::AggiungiBottone(std::string nome, std::string etichetta, std::function<void(Sessione&)> azione) {
  Bottoni.push_back({std::move(nome), std::move(etichetta), std::move(azione)});
  return *this;
}

Dialogo* TrovaDialogo(Sessione& s, std::string_view nome) {
  for (auto& d : s.Dialoghi)
    if (UgualeSenzaCaso(d->Nome, nome)) return d.get();
  return nullptr;
}

bool DialogoAperto(const Sessione& s, std::string_view nome) {
  for (const auto& d : s.Dialoghi)
    if (UgualeSenzaCaso(d->Nome, nome)) return true;
  return false;
}

Dialogo& ApriDialogo(Sessione& s, Dialogo d) {
  ChiudiDialogo(s, d.Nome);
  s.Dialoghi.push_back(std::make_unique<Dialogo>(std::move(d)));
  Dialogo& aperto = *s.Dialoghi.back();
  s.Ui->MostraDialogo(aperto);
  return aperto;
}

void ChiudiDialogo(Sessione& s, std::string_view nome) {
  for (auto it = s.Dialoghi.begin(); it != s.Dialoghi.end(); ++it) {
    if (!UgualeSenzaCaso((*it)->Nome, nome)) continue;
    // Out of the list before the interface hears of it, so that nothing it does in return
    // finds the dialog still open.
    std::unique_ptr<Dialogo> chiuso = std::move(*it);
    s.Dialoghi.erase(it);
    s.Ui->NascondiDialogo(*chiuso);
    return;
  }
}

void AggiornaCampo(Sessione& s, std::string_view dialogo, std::string_view campo, std::string testo) {
  Dialogo* d = TrovaDialogo(s, dialogo);
  if (!d) return;
  CampoDialogo* c = d->Campo(campo);
  if (!c) return;
  c->Testo = std::move(testo);
  s.Ui->AggiornaDialogo(*d);
}

namespace {

// The dialog named, or the latest one opened that satisfies `ha`.
template <class Ha>
Dialogo* Bersaglio(Sessione& s, std::string_view dialogo, Ha ha) {
  if (!dialogo.empty()) {
    Dialogo* d = TrovaDialogo(s, dialogo);
    return d && ha(*d) ? d : nullptr;
  }
  for (auto it = s.Dialoghi.rbegin(); it != s.Dialoghi.rend(); ++it)
    if (ha(**it)) return it->get();
  return nullptr;
}

// The field of that name the user can type into, in the dialog named or the latest one.
CampoDialogo* CampoScrivibile(Sessione& s, std::string_view dialogo, std::string_view campo) {
  Dialogo* d = Bersaglio(s, dialogo, [&](const Dialogo& x) {
    const CampoDialogo* c = x.Campo(campo);
    return c && !c->SoloLettura;
  });
  return d ? d->Campo(campo) : nullptr;
}

}  // namespace

bool ScriviCampo(Sessione& s, std::string_view dialogo, std::string_view campo, std::string testo) {
  CampoDialogo* c = CampoScrivibile(s, dialogo, campo);
  if (!c) return false;
  c->Testo = c->VirgolaAlTasto ? VirgolaInPunto(testo) : std::move(testo);
  return true;
}

bool IncollaCampo(Sessione& s, std::string_view dialogo, std::string_view campo, std::string testo) {
  CampoDialogo* c = CampoScrivibile(s, dialogo, campo);
  if (!c) return false;
  c->Testo = std::move(testo);
  return true;
}

bool PremiBottone(Sessione& s, std::string_view dialogo, std::string_view bottone) {
  Dialogo* d = Bersaglio(s, dialogo, [&](const Dialogo& x) { return x.Bottone(bottone) != nullptr; });
  if (!d) return false;
  // A copy: the action may close the dialog that holds it.
  const std::function<void(Sessione&)> azione = d->Bottone(bottone)->Azione;
  if (azione) azione(s);
  return true;
}

}  // namespace varena
