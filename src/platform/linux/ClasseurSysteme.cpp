#include "platform/linux/ClasseurSysteme.h"

#include "platform/Pannes.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <memory>
#include <utility>
#include <xlsxwriter.h>

using namespace Qt::StringLiterals;

namespace {

/// A text that a cell can hold, in UTF-8.
QByteArray TexteCellule(QString texte) {
  constexpr qsizetype kMaximum = 32767;
  texte.truncate(kMaximum);
  if (!texte.isEmpty() && texte.back().isHighSurrogate()) texte.chop(1);
  // The signs that the format has no way to write.
  for (QChar &c : texte)
    if (c == QChar(0) || c == QChar(0xFFFE) || c == QChar(0xFFFF)) c = u'?';
  return texte.toUtf8();
}

class Redacteur {
 public:
  Redacteur(const QString &chemin, const FeuilleClasseur &feuille)
      : chemin_(chemin),
        feuille_(feuille),
        classeur_(workbook_new(QFile::encodeName(chemin).constData()), lxw_workbook_free) {}

  void Ecrire() {
    if (!classeur_) Verifier(LXW_ERROR_MEMORY_MALLOC_FAILED);
    sortie_ = workbook_add_worksheet(classeur_.get(), feuille_.nom.toUtf8().constData());
    if (sortie_ == nullptr) Verifier(LXW_ERROR_PARAMETER_VALIDATION);
    EcrireColonnes();
    lxw_row_t rang = 0;
    for (const FeuilleClasseur::Rang &contenu : feuille_.rangs) EcrireRang(rang++, contenu);
    errno = 0;
    Verifier(workbook_close(classeur_.release()));
  }

 private:
  void Verifier(lxw_error erreur) const {
    if (erreur == LXW_NO_ERROR) return;
    const int code = erreur == LXW_ERROR_MEMORY_MALLOC_FAILED ? ENOMEM : errno;
    throw EchecSysteme(
        u"Le classeur « %1 » n'a pas pu être écrit"_s.arg(QDir::toNativeSeparators(chemin_)),
        u"Les données sont intactes."_s, code, QString::fromUtf8(lxw_strerror(erreur)));
  }

  void EcrireColonnes() {
    lxw_col_t colonne = 0;
    for (const double largeur : feuille_.largeurs) {
      Verifier(worksheet_set_column(sortie_, colonne, colonne, largeur, Format({})));
      ++colonne;
    }
    Verifier(
        worksheet_set_column(sortie_, colonne, LXW_COL_MAX - 1, LXW_DEF_COL_WIDTH, Format({})));
  }

  void EcrireRang(lxw_row_t rang, const FeuilleClasseur::Rang &contenu) {
    if (contenu.hauteur > 0 || contenu.style != StyleClasseur())
      Verifier(worksheet_set_row(sortie_, rang,
                                 contenu.hauteur > 0 ? contenu.hauteur : LXW_DEF_ROW_HEIGHT,
                                 Format(contenu.style)));
    lxw_col_t colonne = 0;
    for (const FeuilleClasseur::Cellule &cellule : contenu.cellules)
      Verifier(worksheet_write_string(sortie_, rang, colonne++,
                                      TexteCellule(cellule.texte).constData(),
                                      Format(cellule.style)));
  }

  /// The workbook's own format of a style; there are only a few.
  lxw_format *Format(const StyleClasseur &style) {
    for (const auto &[connu, format] : formats_)
      if (connu == style) return format;
    lxw_format *format = workbook_add_format(classeur_.get());
    if (style.gras) format_set_bold(format);
    if (style.italique) format_set_italic(format);
    if (style.souligne) format_set_underline(format, LXW_UNDERLINE_SINGLE);
    if (style.lignes) format_set_text_wrap(format);
    if (style.couleur) format_set_font_color(format, *style.couleur);
    if (style.fond) format_set_bg_color(format, *style.fond);
    if (style.centre) format_set_align(format, LXW_ALIGN_CENTER);
    if (feuille_.milieu) format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
    formats_.emplace_back(style, format);
    return format;
  }

  const QString &chemin_;
  const FeuilleClasseur &feuille_;
  std::unique_ptr<lxw_workbook, void (*)(lxw_workbook *)> classeur_;
  lxw_worksheet *sortie_ = nullptr;
  std::vector<std::pair<StyleClasseur, lxw_format *>> formats_;
};

}  // namespace

void ClasseurSysteme::Ecrire(const QString &chemin, const FeuilleClasseur &feuille) {
  try {
    Redacteur(chemin, feuille).Ecrire();
  } catch (const ErreurFichier &) {
    QFile::remove(chemin);
    throw;
  }
}
