#pragma once
// What the user reads of a taking over: of the files, of what it would meet, and of what it has
// done.

#include "exchange/EtudeReprise.h"
#include "exchange/FichierRepris.h"
#include "exchange/GenreFichier.h"
#include "exchange/Reprise.h"

#include <QList>
#include <QString>

/// "Tableau CSV".
QString TexteGenre(GenreFichier genre);

/// Who would come, one sentence.
QString PhraseEtude(const EtudeReprise &etude);
/// Of the first table that does not name its people, behind it; empty where there is none.
QString PhraseSansNom(const QList<FichierRepris> &fichiers);
/// What has been done, one sentence.
QString PhraseBilan(const BilanReprise &bilan);

/// Whom and what it tells of, name by name; empty where there is nothing of it.
QString DetailBilan(const BilanReprise &bilan);
/// Both, for a file or a terminal.
QString TexteBilan(const BilanReprise &bilan);
/// How it is called where it can be undone.
QString NomReprise(const BilanReprise &bilan);

/// The whole report, as a text file in the place of whatever bears that name. Throws
/// `ErreurFichier`.
void EcrireCompteRendu(const QString &chemin, const BilanReprise &bilan);

/// What an answer does, for a person or for all.
QString TexteDeja(Deja deja);
/// The same beside a name.
QString TexteReponse(const ReponseReprise &reponse);
