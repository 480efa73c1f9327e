#include "platform/linux/ServeurImpression.h"

#include "platform/Erreurs.h"
#include "platform/Pannes.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <cups/cups.h>
#include <cups/pwg.h>
#include <span>
#include <thread>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr double kTranche = 0.25;                 // seconds between two looks at the clock
constexpr std::chrono::milliseconds kSuivi{400};  // shorter than what a window takes for a wait
constexpr std::chrono::milliseconds kPasSuivi{40};
constexpr qsizetype kBloc = 32768;
constexpr double kParMillimetre = 100;  // lengths are told in hundredths

QString Mots() {
  return QString::fromUtf8(cupsLastErrorString());
}

QString EnService() {
  return u"Remettez-la en service dans les réglages du système, ou choisissez-en une autre."_s;
}

Panne PanneMuette() {
  return {u"le serveur d'impression ne répond pas"_s,
          u"Vérifiez qu'il est en marche et que le réseau fonctionne, puis recommencez."_s};
}

Panne PanneRefus(ipp_status_t statut) {
  switch (statut) {
    case IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS:
      return {u"elle n'accepte plus de documents"_s, EnService()};
    case IPP_STATUS_ERROR_NOT_FOUND:
    case IPP_STATUS_ERROR_GONE:
      return {u"le système ne l'a plus"_s, u"Choisissez-en une autre."_s};
    case IPP_STATUS_ERROR_FORBIDDEN:
    case IPP_STATUS_ERROR_NOT_AUTHENTICATED:
    case IPP_STATUS_ERROR_NOT_AUTHORIZED:
    case IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED:
      return {u"vous n'en avez pas le droit"_s,
              u"Choisissez-en une autre, ou adressez-vous à qui administre les imprimantes."_s};
    default:
      return {u"le document a été refusé"_s,
              u"Vérifiez l'imprimante et sa file d'attente, puis recommencez."_s};
  }
}

Erreur Echec(const QString &file, const Panne &panne, const QString &detail) {
  return Erreur(
      PhraseEchec(u"L'imprimante « %1 » n'a rien imprimé"_s.arg(file), panne, {}, detail));
}

/// Who has to give a password is told that he may not print: nobody sits at a terminal.
const char *SansMotDePasse(const char *, http_t *, const char *, const char *, void *) {
  return nullptr;
}

QString Nom(const cups_dest_t &destination) {
  const QString nom = QString::fromUtf8(destination.name);
  return destination.instance == nullptr ? nom
                                         : nom + u'/' + QString::fromUtf8(destination.instance);
}

Millimetres Longueur(int centiemes) {
  return Millimetres(centiemes / kParMillimetre);
}

int Centiemes(Millimetres longueur) {
  return static_cast<int>(std::lround(longueur.valeur * kParMillimetre));
}

Marges MargesDe(const cups_size_t &taille) {
  return {Longueur(taille.left), Longueur(taille.top), Longueur(taille.right),
          Longueur(taille.bottom)};
}

/// What a server has set for a queue holds where a document says nothing.
constexpr std::pair<const char *, const char *> kTelQuel[] = {
    {"print-scaling", "none"}, {"orientation-requested", "3"}, {"number-up", "1"}};

/// Options of a queue that turn, scale or gather pages, or name another paper.
bool ChangeLaPage(const char *option) {
  constexpr std::array kOptions{
      "PageSize",  "PageRegion",      "media-col",   "orientation-requested",
      "landscape", "number-up",       "fit-to-page", "fitplot",
      "scaling",   "natural-scaling", "mirror",      "page-border"};
  return std::ranges::any_of(kOptions,
                             [&](const char *autre) { return qstrcmp(option, autre) == 0; });
}

bool EstBac(const char *option) {
  return qstrcmp(option, "media-source") == 0 || qstrcmp(option, "InputSlot") == 0;
}

}  // namespace

/// A queue, and what it can do.
class ServeurImpression::Destination {
 public:
  Destination(http_t *liaison, const QString &file) : nom(file) {
    // Asked for a queue by its name alone, the library would turn to a connection of its own where
    // there is none, and wait there for minutes.
    nombre_ = cupsGetDests2(liaison, &files_);
    const QByteArray queue = file.section(u'/', 0, 0).toUtf8();
    const QByteArray variante = file.section(u'/', 1).toUtf8();
    file_ = cupsGetDest(queue.constData(), variante.isEmpty() ? nullptr : variante.constData(),
                        nombre_, files_);
    if (file_ != nullptr) capacites_ = cupsCopyDestInfo(liaison, file_);
  }
  ~Destination() {
    if (capacites_ != nullptr) cupsFreeDestInfo(capacites_);
    cupsFreeDests(nombre_, files_);
  }
  Destination(const Destination &) = delete;
  Destination &operator=(const Destination &) = delete;

  bool EstLa() const { return file_ != nullptr; }
  bool EstConnue() const { return capacites_ != nullptr; }
  cups_dest_t *File() const { return file_; }
  cups_dinfo_t *Capacites() const { return capacites_; }
  bool EstArretee() const {
    const char *etat = cupsGetOption("printer-state", file_->num_options, file_->options);
    return etat != nullptr && std::atoi(etat) == IPP_PSTATE_STOPPED;
  }

  const QString nom;

 private:
  int nombre_ = 0;
  cups_dest_t *files_ = nullptr;
  cups_dest_t *file_ = nullptr;  // one of them
  cups_dinfo_t *capacites_ = nullptr;
};

ServeurImpression::ServeurImpression(std::stop_token arret)
    : arret_(std::move(arret)),
      annulation_(arret_, [this] { std::atomic_ref(annulee_).store(1); }),
      liaison_(nullptr, httpClose) {
  cupsSetPasswordCB2(SansMotDePasse, nullptr);
  Patienter();
  constexpr auto kDelai = std::chrono::milliseconds(kPatience);
  liaison_.reset(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                              static_cast<int>(kDelai.count()), &annulee_));
  if (liaison_ == nullptr) {
    ExigerReponse();
    return;
  }
  httpSetTimeout(
      liaison_.get(), kTranche,
      [](http_t *, void *serveur) {
        return static_cast<ServeurImpression *>(serveur)->SansReponse() ? 0 : 1;
      },
      this);
}

ServeurImpression::~ServeurImpression() = default;

void ServeurImpression::Patienter() {
  fin_ = std::chrono::steady_clock::now() + kPatience;
}

bool ServeurImpression::SansReponse() const {
  return arret_.stop_requested() || std::chrono::steady_clock::now() >= fin_;
}

void ServeurImpression::ExigerReponse() const {
  if (SansReponse())
    throw Erreur(PhraseEchec(u"Les imprimantes n'ont pas pu être interrogées"_s, PanneMuette(),
                             u"Rien n'a été imprimé."_s, {}));
}

ServeurImpression::Files ServeurImpression::Lister() {
  if (liaison_ == nullptr) return {};
  Patienter();
  cups_dest_t *destinations = nullptr;
  const int nombre = cupsGetDests2(liaison_.get(), &destinations);
  Files files;
  for (const cups_dest_t &destination : std::span(destinations, static_cast<std::size_t>(nombre))) {
    files.noms << Nom(destination);
    if (destination.is_default != 0) files.parDefaut = Nom(destination);
  }
  cupsFreeDests(nombre, destinations);
  if (files.noms.isEmpty()) ExigerReponse();
  return files;
}

std::optional<ServeurImpression::Support> ServeurImpression::SupportPour(const QString &file,
                                                                         const Papier &papier) {
  if (liaison_ == nullptr) return std::nullopt;
  Patienter();
  const Destination destination(liaison_.get(), file);
  if (!destination.EstConnue()) ExigerReponse();
  if (!destination.EstLa()) return std::nullopt;
  return papier.enveloppe ? SupportEnveloppe(destination, papier) : SupportA4(destination);
}

ServeurImpression::Support ServeurImpression::SupportA4(const Destination &destination) const {
  Support a4{.nom = QString::fromLatin1(CUPS_MEDIA_A4), .taille = Papier().page};
  cups_size_t feuille{};
  if (destination.EstConnue() &&
      cupsGetDestMediaByName(liaison_.get(), destination.File(), destination.Capacites(),
                             CUPS_MEDIA_A4, CUPS_MEDIA_FLAGS_DEFAULT, &feuille))
    a4.marges = MargesDe(feuille);
  return a4;  // a queue that does not know its printer has no margins
}

ServeurImpression::Support ServeurImpression::SupportEnveloppe(const Destination &destination,
                                                               const Papier &papier) const {
  const Taille feuille = papier.Feuille();
  std::vector<Support> supports;
  std::vector<Taille> tailles;
  const int nombre = destination.EstConnue()
                         ? cupsGetDestMediaCount(liaison_.get(), destination.File(),
                                                 destination.Capacites(), CUPS_MEDIA_FLAGS_DEFAULT)
                         : 0;
  for (int i = 0; i < nombre; ++i) {
    cups_size_t taille{};
    if (!cupsGetDestMediaByIndex(liaison_.get(), destination.File(), destination.Capacites(), i,
                                 CUPS_MEDIA_FLAGS_DEFAULT, &taille))
      continue;
    tailles.push_back({Longueur(taille.width), Longueur(taille.length)});
    supports.push_back({QString::fromUtf8(taille.media), tailles.back(), MargesDe(taille)});
  }
  if (const auto rang = PlusProche(tailles, feuille)) return supports[*rang];

  if (destination.EstConnue() && !PrendSurMesure(destination, feuille))
    throw Echec(destination.nom,
                {u"elle ne prend pas de papier de %1 sur %2 mm"_s.arg(feuille.largeur.valeur)
                     .arg(feuille.hauteur.valeur),
                 u"Dans la configuration de l'impression, choisissez l'autre côté de l'enveloppe, "
                 "ou la feuille A4."_s},
                {});
  std::array<char, 128> nom{};
  pwgFormatSizeName(nom.data(), nom.size(), "custom", nullptr, Centiemes(feuille.largeur),
                    Centiemes(feuille.hauteur), "mm");
  return {QString::fromLatin1(nom.data()), feuille, SupportA4(destination).marges, true};
}

bool ServeurImpression::PrendSurMesure(const Destination &destination,
                                       const Taille &feuille) const {
  ipp_attribute_t *noms = cupsFindDestSupported(liaison_.get(), destination.File(),
                                                destination.Capacites(), CUPS_MEDIA);
  bool assezGrand = false, assezPetit = false;
  for (int i = 0; i < ippGetCount(noms); ++i) {
    const QByteArray nom = ippGetString(noms, i, nullptr);
    const pwg_media_t *borne = pwgMediaForPWG(nom.constData());
    if (borne == nullptr) continue;
    const Millimetres largeur = Longueur(borne->width), hauteur = Longueur(borne->length);
    if (nom.startsWith("custom_min_"))
      assezGrand = feuille.largeur >= largeur && feuille.hauteur >= hauteur;
    if (nom.startsWith("custom_max_"))
      assezPetit = feuille.largeur <= largeur && feuille.hauteur <= hauteur;
  }
  return assezGrand && assezPetit;
}

QString ServeurImpression::Envoyer(const QString &file, const QString &titre, const QByteArray &pdf,
                                   const Envoi &envoi) {
  if (liaison_ == nullptr) throw Echec(file, PanneMuette(), {});
  Patienter();
  const Destination destination(liaison_.get(), file);
  if (!destination.EstConnue())
    throw Echec(file, SansReponse() ? PanneMuette() : PanneRefus(IPP_STATUS_ERROR_NOT_FOUND),
                Mots());
  if (destination.EstArretee()) throw Echec(file, {u"elle est arrêtée"_s, EnService()}, {});

  // What the user has chosen for this printer, but for the sheet.
  cups_option_t *options = nullptr;
  int nombre = 0;
  QString bac;
  for (const cups_option_t &option :
       std::span(destination.File()->options,
                 static_cast<std::size_t>(destination.File()->num_options))) {
    if (envoi.telQuel && ChangeLaPage(option.name)) continue;
    nombre = cupsAddOption(option.name, option.value, nombre, &options);
    if (EstBac(option.name)) bac = QString::fromUtf8(option.value);
  }
  nombre = cupsAddOption(CUPS_MEDIA, envoi.support.toUtf8().constData(), nombre, &options);
  if (envoi.recto) nombre = cupsAddOption(CUPS_SIDES, CUPS_SIDES_ONE_SIDED, nombre, &options);
  if (envoi.telQuel)
    for (const auto &[option, valeur] : kTelQuel)
      nombre = cupsAddOption(option, valeur, nombre, &options);
  int travail = 0;
  const ipp_status_t statut =
      cupsCreateDestJob(liaison_.get(), destination.File(), destination.Capacites(), &travail,
                        titre.toUtf8().constData(), nombre, options);
  cupsFreeOptions(nombre, options);
  if (travail == 0) throw Echec(file, SansReponse() ? PanneMuette() : PanneRefus(statut), Mots());
  try {
    Ecrire(destination, travail, pdf);
    Suivre(destination, travail);
  } catch (...) {
    // This talk takes part in nothing any more where it has been given up.
    if (arret_.stop_requested())
      Ignorer([&] { ServeurImpression().Retirer(file, travail); });
    else if (SansReponse())
      throw RemiseIncertaine(
          PhraseEchec(u"L'imprimante « %1 » n'a pas dit ce qu'elle fait du document"_s.arg(file),
                      {u"le serveur d'impression ne répond pas"_s,
                       u"Regardez si elle l'a imprimé avant de recommencer."_s},
                      {}, {}));
    else
      cupsCancelDestJob(liaison_.get(), destination.File(), travail);
    throw;
  }
  return bac;
}

void ServeurImpression::Retirer(const QString &file, int travail) {
  if (liaison_ == nullptr) return;
  Patienter();
  const Destination destination(liaison_.get(), file);
  if (destination.EstLa()) cupsCancelDestJob(liaison_.get(), destination.File(), travail);
}

void ServeurImpression::Ecrire(const Destination &destination, int travail, const QByteArray &pdf) {
  const auto exiger = [&](bool reussi) {
    if (!reussi)
      throw Echec(destination.nom, SansReponse() ? PanneMuette() : PanneRefus(cupsLastError()),
                  Mots());
    Patienter();
  };
  http_t *liaison = liaison_.get();
  exiger(cupsStartDestDocument(liaison, destination.File(), destination.Capacites(), travail,
                               "Velmira", CUPS_FORMAT_PDF, 0, nullptr, 1) == HTTP_STATUS_CONTINUE);
  for (qsizetype place = 0; place < pdf.size(); place += kBloc)
    exiger(cupsWriteRequestData(liaison, pdf.constData() + place,
                                static_cast<std::size_t>(std::min(kBloc, pdf.size() - place))) ==
           HTTP_STATUS_CONTINUE);
  const ipp_status_t statut =
      cupsFinishDestDocument(liaison, destination.File(), destination.Capacites());
  exiger(statut <= IPP_STATUS_OK_EVENTS_COMPLETE);
}

void ServeurImpression::Suivre(const Destination &destination, int travail) {
  const auto fin = std::chrono::steady_clock::now() + kSuivi;
  while (std::chrono::steady_clock::now() < fin) {
    ipp_t *question = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
    const QByteArray adresse = "ipp://localhost/jobs/" + QByteArray::number(travail);
    ippAddString(question, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, adresse.constData());
    ippAddString(question, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    const std::unique_ptr<ipp_t, void (*)(ipp_t *)> reponse(
        cupsDoRequest(liaison_.get(), question, "/"), ippDelete);
    ipp_attribute_t *attribut = ippFindAttribute(reponse.get(), "job-state", IPP_TAG_ENUM);
    if (attribut == nullptr) return;  // taken, and no more is to be had
    const int etat = ippGetInteger(attribut, 0);
    if (etat == IPP_JSTATE_COMPLETED) return;
    if (etat == IPP_JSTATE_ABORTED || etat == IPP_JSTATE_CANCELED || etat == IPP_JSTATE_STOPPED) {
      attribut = ippFindAttribute(reponse.get(), "job-printer-state-message", IPP_TAG_TEXT);
      throw Echec(destination.nom,
                  {u"le document a été abandonné en chemin"_s,
                   u"Vérifiez l'imprimante et sa file d'attente, puis recommencez."_s},
                  QString::fromUtf8(ippGetString(attribut, 0, nullptr)));
    }
    std::this_thread::sleep_for(kPasSuivi);
  }
}
