// velmira_bench_evolution: adds the cards of a file to an address book of Evolution's data server
// that holds those of another file already, and tells the seconds that this took. It is started in
// a session of its own, with folders of the user (XDG_DATA_HOME and the like) where nothing lies:
//   dbus-run-session -- velmira_bench_evolution PRESENT.vcf NEW.vcf NUMBER-OF-BOTH

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <libebook/libebook.h>
#include <string>

namespace {

[[noreturn]] void Echouer(const char *quoi, const GError *faute = nullptr) {
  std::fprintf(stderr, "%s%s%s\n", quoi, faute == nullptr ? "" : ": ",
               faute == nullptr ? "" : faute->message);
  std::exit(EXIT_FAILURE);
}

/// Its contacts, in the order of the file.
GSList *Lire(const char *chemin) {
  gchar *octets = nullptr;
  GError *faute = nullptr;
  if (!g_file_get_contents(chemin, &octets, nullptr, &faute)) Echouer("no cards", faute);
  const std::string texte = octets, fin = "END:VCARD\r\n";
  g_free(octets);
  GSList *contacts = nullptr;
  std::size_t debut = 0;
  for (std::size_t la = 0; (la = texte.find(fin, debut)) != std::string::npos;
       debut = la + fin.size())
    contacts = g_slist_prepend(
        contacts, e_contact_new_from_vcard(texte.substr(debut, la + fin.size() - debut).c_str()));
  return g_slist_reverse(contacts);
}

/// All at once, which costs the least.
void Ajouter(EBookClient *carnet, const char *chemin) {
  GSList *contacts = Lire(chemin);
  GError *faute = nullptr;
  if (!e_book_client_add_contacts_sync(carnet, contacts, E_BOOK_OPERATION_FLAG_NONE, nullptr,
                                       nullptr, &faute))
    Echouer("the contacts are not added", faute);
  g_slist_free_full(contacts, g_object_unref);
}

unsigned Compter(EBookClient *carnet) {
  GSList *cles = nullptr;
  GError *faute = nullptr;
  if (!e_book_client_get_contacts_uids_sync(carnet, R"((contains "x-evolution-any-field" ""))",
                                            &cles, nullptr, &faute))
    Echouer("the contacts are not counted", faute);
  return g_slist_length(cles);
}

}  // namespace

int main(int argc, char *argv[]) {
  if (argc != 4) Echouer("usage: velmira_bench_evolution PRESENT.vcf NEW.vcf NUMBER-OF-BOTH");
  GError *faute = nullptr;
  ESourceRegistry *registre = e_source_registry_new_sync(nullptr, &faute);
  if (registre == nullptr) Echouer("no registry", faute);
  constexpr guint32 kSansAttendre = -1;  // for a network
  EClient *client = e_book_client_connect_sync(e_source_registry_ref_builtin_address_book(registre),
                                               kSansAttendre, nullptr, &faute);
  if (client == nullptr) Echouer("no address book", faute);
  EBookClient *carnet = E_BOOK_CLIENT(client);
  Ajouter(carnet, argv[1]);

  using Montre = std::chrono::steady_clock;
  const auto debut = Montre::now();
  Ajouter(carnet, argv[2]);
  const double secondes = std::chrono::duration<double>(Montre::now() - debut).count();
  if (Compter(carnet) != std::strtoul(argv[3], nullptr, 10)) Echouer("contacts are missing");
  std::printf("%.9f\n", secondes);
  return EXIT_SUCCESS;
}
