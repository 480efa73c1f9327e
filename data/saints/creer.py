#!/usr/bin/env python3
"""Makes data/Saints.txt from a calendar of name days and from complement.lst; see data/README.md.

    creer.py FILE_calendar.fetes
"""

import os
import re
import sys
from datetime import date, timedelta
from pathlib import Path

ICI = Path(__file__).resolve().parent
SORTIE = ICI.parent / "Saints.txt"

# The source wishes each name in one of these forms; its other lines are jokes and feasts.
SOUHAIT = re.compile(
    r"(\d\d)/(\d\d)\t(?:Bonne fête aux|N'oubliez pas les|Aujourd'hui, c'est la St\(e\)|"
    r"C'est la St) (.+?) ?[.!]$"
)
NOM = re.compile(r"[^\W\d_]+(-[^\W\d_]+)*")
ANNEE_BISSEXTILE = 2024


def jours():
    """The 366 days as "jj/mm", in the order of the year."""
    premier = date(ANNEE_BISSEXTILE, 1, 1)
    return [(premier + timedelta(n)).strftime("%d/%m") for n in range(366)]


def lire_source(chemin):
    """The names of each day, in the order of the source; spellings in brackets are left out."""
    noms = {}
    for ligne in chemin.read_text(encoding="utf-8").splitlines():
        if souhait := SOUHAIT.match(ligne):
            mois, jour, texte = souhait.groups()
            for nom in re.sub(r" \(.*\)", "", texte).split(" et aux "):
                noms.setdefault(f"{jour}/{mois}", []).append(nom)
    return noms


def lire_complement(chemin):
    """For each day the names to put in front, and those of the source to leave out."""
    devant, sans = {}, {}
    for ligne in chemin.read_text(encoding="utf-8").splitlines():
        if not ligne or ligne.startswith("#"):
            continue
        jour, noms = ligne.split(" ", 1)
        if jour in devant:
            raise ValueError(f"{jour} stands twice in {chemin.name}")
        noms = noms.split(", ")
        devant[jour] = [nom for nom in noms if not nom.startswith("-")]
        sans[jour] = [nom[1:] for nom in noms if nom.startswith("-")]
    return devant, sans


def assembler(source, devant, sans):
    calendrier = {}
    for jour in jours():
        noms = list(devant.pop(jour, []))
        a_ecarter = sans.pop(jour, [])
        if inconnus := set(a_ecarter) - set(source.get(jour, [])):
            raise ValueError(f"{jour}: not in the source: {', '.join(sorted(inconnus))}")
        for nom in source.get(jour, []):
            if nom not in noms and nom not in a_ecarter:
                noms.append(nom)
        if not noms or len(noms) != len(set(noms)):
            raise ValueError(f"{jour}: no name, or one twice")
        for nom in noms:
            if not NOM.fullmatch(nom):
                raise ValueError(f"{jour}: not a first name: {nom}")
        calendrier[jour] = noms
    if devant:
        raise ValueError(f"no such day: {', '.join(devant)}")
    return calendrier


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    calendrier = assembler(lire_source(Path(sys.argv[1])), *lire_complement(ICI / "complement.lst"))
    lignes = [
        f'"{jour.replace("/", "")}","{" - ".join(f"St(e) {nom}" for nom in noms)}"\r\n'
        for jour, noms in calendrier.items()
    ]
    nouveau = SORTIE.with_suffix(".nouveau")
    nouveau.write_bytes("".join(lignes).encode("cp1252"))
    os.replace(nouveau, SORTIE)
    print(f"{SORTIE}: {len(lignes)} days, {sum(map(len, calendrier.values()))} names")


if __name__ == "__main__":
    main()
