#include "desktop/FoldedText.h"

namespace ovalia::desktop {

QString folded(const QString& text) {
  QString plain;
  for (const QChar c : text.normalized(QString::NormalizationForm_KD))
    if (!c.isMark()) plain += c;
  return plain.toCaseFolded();
}

}  // namespace ovalia::desktop
