// Makes data/CdPostal.txt from the folders of two packages of open data; see data/README.md.
//
//   node creer.mjs FOLDER_OF_codes-postaux FOLDER_OF_decoupage-administratif

import { readFileSync, renameSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';

const lire = (dossier, fichier) => JSON.parse(readFileSync(join(dossier, fichier), 'utf8'));

/** The name as the post writes it: capitals without accents or signs, ST and STE. */
function nomPostal(nom) {
  return nom
    .replace(/^(.*?) *\( *(LE|LA|LES|L) *'? *\)$/, '$2 $1') // "HERBIERS (LES)"
    .normalize('NFD')
    .replace(/\p{Mark}/gu, '')
    .toUpperCase()
    .replaceAll('Œ', 'OE')
    .replaceAll('Æ', 'AE')
    .replace(/[-'’()]/g, ' ')
    .replace(/\bSAINT\b/g, 'ST')
    .replace(/\bSAINTE\b/g, 'STE')
    .replace(/ +/g, ' ')
    .trim();
}

const kLargeurLibelle = 30; // a delivery label of this length has been cut off

/** From 0 to 1: how many pairs of neighbouring letters two names share, blanks apart. */
function ressemblance(un, autre) {
  const paires = (nom) => {
    const lettres = nom.replaceAll(' ', '');
    return [...lettres.slice(1)].map((lettre, i) => lettres[i] + lettre);
  };
  const restantes = paires(un);
  const total = restantes.length + paires(autre).length;
  let communes = 0;
  for (const paire of paires(autre)) {
    const place = restantes.indexOf(paire);
    if (place < 0) continue;
    restantes.splice(place, 1);
    ++communes;
  }
  return total === 0 ? 1 : (2 * communes) / total;
}

/**
 * Whether a delivery label tells a place of its own. Many are the commune's name again, cut off,
 * abbreviated or mistyped; those would be false entries beside the right one.
 */
function estUnAutreLieu(libelle, commune) {
  if (!/^[A-Z ]+$/.test(libelle)) return false;
  if (/\bCOMMUNE NOUVEL|\b(PRINCIPAL|BOURG)$/.test(libelle)) return false;
  return libelle.startsWith(`${commune} `) || ressemblance(libelle, commune) < 0.4;
}

function entrees(acheminement, communes) {
  const lignes = new Set();
  const ajouter = (code, nom) => lignes.add(`${code}  ${nom}`);

  const actuelles = new Map();
  for (const commune of communes)
    if (commune.type === 'commune-actuelle' && commune.codesPostaux)
      actuelles.set(commune.code, { nom: nomPostal(commune.nom), codes: commune.codesPostaux });
  for (const { nom, codes } of actuelles.values()) for (const code of codes) ajouter(code, nom);

  // A former commune has its successor's code, where the successor has but one.
  for (const ancienne of communes) {
    const codes = actuelles.get(ancienne.chefLieu)?.codes ?? [];
    if (codes.length === 1) ajouter(codes[0], nomPostal(ancienne.nom));
  }

  // Of the older list: places with a code of their own, and communes that have merged since. Its
  // codes that the newer list has no more are those of army bases and of bulk mail.
  const arrondissements = new Set(
    communes.filter((c) => c.type === 'arrondissement-municipal').map((c) => c.code),
  );
  const enUsage = new Set([...actuelles.values()].flatMap((c) => c.codes));
  for (const { codePostal, codeCommune, nomCommune, libelleAcheminement } of acheminement) {
    if (!enUsage.has(codePostal) || arrondissements.has(codeCommune)) continue;
    const actuelle = actuelles.get(codeCommune);
    if (!actuelle) {
      ajouter(codePostal, nomPostal(nomCommune));
      continue;
    }
    if (!actuelle.codes.includes(codePostal)) continue; // a few streets, served from next door
    if (libelleAcheminement.length >= kLargeurLibelle) continue;
    const libelle = nomPostal(libelleAcheminement);
    if (estUnAutreLieu(libelle, actuelle.nom)) ajouter(codePostal, libelle);
  }
  return [...lignes];
}

/** By name, then by code, in the order of the bytes. */
function comparer(un, autre) {
  const cle = (ligne) => `${ligne.slice(7)}\t${ligne.slice(0, 5)}`;
  return cle(un) < cle(autre) ? -1 : 1;
}

const [dossierCodes, dossierDecoupage] = process.argv.slice(2);
if (!dossierDecoupage) {
  console.error('creer.mjs FOLDER_OF_codes-postaux FOLDER_OF_decoupage-administratif');
  process.exit(2);
}
const lignes = entrees(
  lire(dossierCodes, 'codes-postaux.json'),
  lire(dossierDecoupage, join('data', 'communes.json')),
).sort(comparer);
const mauvaise = lignes.find((ligne) => !/^\d{5}  [A-Z]+( [A-Z]+)*$/.test(ligne));
if (mauvaise) throw new Error(`not of the form: "${mauvaise}"`);

const sortie = fileURLToPath(new URL('../CdPostal.txt', import.meta.url));
writeFileSync(`${sortie}.nouveau`, lignes.map((ligne) => `${ligne}\r\n`).join(''), 'latin1');
renameSync(`${sortie}.nouveau`, sortie);
console.log(`${sortie}: ${lignes.length} lines`);
