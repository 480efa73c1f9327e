#pragma once
// The words that the correspondents of the example are made of.

#include <array>

inline constexpr auto kPrenomsFemmes = std::to_array<const char16_t *>({
    u"Agnès",  u"Alice",    u"Amélie",  u"Anaïs",  u"Béatrice", u"Bérénice", u"Cécile",  u"Chloé",
    u"Claire", u"Danièle",  u"Édith",   u"Élodie", u"Émilie",   u"Fatima",   u"Fanny",   u"Gaëlle",
    u"Hélène", u"Inès",     u"Irène",   u"Jeanne", u"Joëlle",   u"Léa",      u"Lucie",   u"Maëlys",
    u"Manon",  u"Margaux",  u"Michèle", u"Nadia",  u"Noémie",   u"Odile",    u"Pauline", u"Régine",
    u"Sabine", u"Séverine", u"Solène",  u"Sylvie", u"Thérèse",  u"Valérie",  u"Yvonne",  u"Zoé",
});

inline constexpr auto kPrenomsHommes = std::to_array<const char16_t *>({
    u"Adrien",   u"Alexis",   u"Anselme", u"Antoine", u"Aurélien", u"Baptiste", u"Benoît",
    u"Cédric",   u"Clément",  u"Damien",  u"Didier",  u"Édouard",  u"Étienne",  u"Fabrice",
    u"François", u"Frédéric", u"Gaël",    u"Gérard",  u"Grégoire", u"Hervé",    u"Hugo",
    u"Jérôme",   u"Joël",     u"Karim",   u"Léon",    u"Loïc",     u"Lucas",    u"Mathéo",
    u"Maxime",   u"Mickaël",  u"Nicolas", u"Noël",    u"Paul",     u"Quentin",  u"Raphaël",
    u"Rémi",     u"Stéphane", u"Théo",    u"Tristan", u"Yann",
});

inline constexpr auto kNoms = std::to_array<const char16_t *>({
    u"Abadie",    u"Aubrée",   u"Barthélemy", u"Béchard",     u"Bellanger", u"Besançon",
    u"Bigot",     u"Boisseau", u"Bréhier",    u"Caillé",      u"Carré",     u"Chénier",
    u"Clément",   u"Coëffic",  u"Crépin",     u"Daguerre",    u"Delaunay",  u"Désormeaux",
    u"Drouët",    u"Durand",   u"Éon",        u"Escoffier",   u"Étévenard", u"Faucheux",
    u"Ferré",     u"Fougère",  u"Gachet",     u"Gaudé",       u"Génin",     u"Guéguen",
    u"Guilloux",  u"Haddad",   u"Hérault",    u"Houssais",    u"Jarry",     u"Jégou",
    u"Kermarrec", u"Labbé",    u"Laîné",      u"Le Goff",     u"Le Quéré",  u"Lefèvre",
    u"Legendre",  u"Lévêque",  u"L'Hostis",   u"Maréchal",    u"Martineau", u"Mézière",
    u"Monnier",   u"Noblet",   u"Oger",       u"Pâris",       u"Péan",      u"Périgault",
    u"Pinçon",    u"Prévost",  u"Quéméner",   u"Rémond",      u"Renaudin",  u"Rivière",
    u"Rousselet", u"Sénéchal", u"Serrano",    u"Taillandier", u"Tessier",   u"Thébaud",
    u"Tréguer",   u"Vasseur",  u"Viénot",     u"Zimmer",
});

inline constexpr auto kVoies = std::to_array<const char16_t *>({
    u"rue des Lilas",
    u"rue de l'Église",
    u"avenue Jean-Jaurès",
    u"rue du Moulin-à-Vent",
    u"boulevard de la Liberté",
    u"place du Marché",
    u"allée des Tilleuls",
    u"chemin des Écoliers",
    u"rue Molière",
    u"rue de la Fontaine",
    u"quai des Bateliers",
    u"rue des Trois-Rois",
    u"impasse du Pré-Vert",
    u"rue Victor-Hugo",
    u"avenue de la Gare",
    u"rue du Four",
    u"cours des Platanes",
    u"rue de la Poterne",
    u"sentier des Mûriers",
    u"rue Louis-Pasteur",
    u"rue des Genêts",
    u"square Honoré-de-Balzac",
    u"rue du Château-d'Eau",
    u"route de l'Étang",
});

inline constexpr auto kComplements = std::to_array<const char16_t *>({
    u"Résidence Les Tilleuls",
    u"Bâtiment B, escalier 2",
    u"Appartement 12",
    u"Le Clos des Hérons",
    u"Lieu-dit La Prée",
    u"Chez Mme Houdebine",
    u"3e étage à gauche",
    u"Villa Les Embruns",
});

inline constexpr auto kSocietes = std::to_array<const char16_t *>({
    u"Éditions du Grand Large",
    u"Imprimerie Trois Ponts",
    u"Librairie du Passage",
    u"Papeterie Bleu Nuit",
    u"Transports Vent d'Ouest",
    u"Atelier Trait et Couleur",
});

/// A trade, and the words under the name of its firm.
struct Metier {
  const char16_t *court;
  const char16_t *enseigne;
};

inline constexpr auto kMetiers = std::to_array<Metier>({
    {u"Menuiserie", u"Menuiserie – agencement"},
    {u"Plomberie", u"Plomberie, chauffage"},
    {u"Électricité", u"Électricité générale"},
    {u"Couverture", u"Couverture, zinguerie"},
    {u"Peinture", u"Peinture et revêtements"},
    {u"Serrurerie", u"Serrurerie, métallerie"},
    {u"Jardins", u"Création de jardins"},
    {u"Maçonnerie", u"Maçonnerie, taille de pierre"},
    {u"Ébénisterie", u"Ébénisterie d'art"},
    {u"Carrelage", u"Carrelage et faïence"},
    {u"Vitrerie", u"Vitrerie, miroiterie"},
    {u"Ramonage", u"Ramonage, fumisterie"},
    {u"Tapisserie", u"Tapisserie d'ameublement"},
    {u"Horlogerie", u"Horlogerie, réparation"},
});

inline constexpr auto kSpecialites = std::to_array<const char16_t *>({
    u"Médecine générale",
    u"Chirurgie dentaire",
    u"Pédiatrie",
    u"Ophtalmologie",
    u"Cardiologie",
    u"Dermatologie",
    u"Kinésithérapie",
    u"Médecine générale",
});

inline constexpr auto kOrganismes = std::to_array<const char16_t *>({
    u"Assurances du Vieux Port",
    u"Banque du Bocage",
    u"Bibliothèque Le Préau",
    u"Collège Les Ormes",
    u"Garage du Rond-Point",
    u"Syndic Les Tilleuls",
});

inline constexpr auto kNotes = std::to_array<const char16_t *>({
    u"Appeler plutôt après 18 h.",
    u"Rendre le livre sur les phares.",
    u"Allergie aux noix : y penser pour les repas.",
    u"Code de l'entrée : demander au gardien.",
    u"A déménagé au printemps ; ancienne adresse à effacer.",
    u"Ne lit pas ses messages, téléphoner.",
    u"Carte de vœux chaque année.",
    u"Prête sa remorque le week-end.\nLa rendre avec le plein.",
    u"Garde le chat pendant les vacances.",
    u"Connaissance du marché de Noël.",
    u"Repas sans viande.",
    u"Merci à envoyer pour le concert.\nChèque de 15 € à rembourser.",
});
