#include "ui/CochesLiees.h"

CochesLiees::CochesLiees(QCheckBox *maitre, const QList<QCheckBox *> &suivantes) : QObject(maitre) {
  for (QCheckBox *suivante : suivantes) {
    connect(maitre, &QCheckBox::clicked, suivante, &QCheckBox::setChecked);
    connect(suivante, &QCheckBox::clicked, maitre, [maitre, suivante] {
      if (maitre->isChecked()) suivante->setChecked(true);
    });
  }
}
