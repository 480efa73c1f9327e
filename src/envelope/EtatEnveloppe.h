#pragma once

#include <QString>

/// What an envelope is in memory beside the settings of `Plomex.ini`: one for the whole run.
struct EtatEnveloppe {
  float LargeurEnv = 220;                     ///< longest side, millimetres
  float HauteurEnv = 110;                     ///< millimetres
  QString LiaisonCP = QStringLiteral(" - ");  ///< between postal code and town
  quint8 OptionCPAdresse = 0;                 ///< 0 code first, 1 town first, of the addressee
  quint8 OptionCPExpediteur = 0;              ///< and of the sender
  QString AdresseCourante;                    ///< address string of the addressee, empty for none
  QString ExpediteurCourant;                  ///< address string of the sender, empty for none
  QString Commentaire;                        ///< printed at the top right, empty for none
  bool CommentaireGras = false;
  bool CommentaireSouligne = false;
  quint8 ImpressionMultiple = 0;  ///< 1 while a run of envelopes is prepared or printed
  quint8 PaysPresent = 0;         ///< the text last formatted ends with a country
};
