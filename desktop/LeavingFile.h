#pragma once

#include <QMimeData>

#include "platform/Text.h"

namespace ovalia::desktop {

// What a document is called outside: as its user knows it, less what no file name can hold. "" where nothing
// is left.
QString leavingName(TextView shown);

// A document on its way into another program: a copy in the user's own temporary folder, under the name that
// it is shown by, as a list of one address. The copy is made when somebody asks for it, and stays until the
// program ends, since nobody tells when it has been read. A document that cannot be copied gives an empty
// list.
class LeavingFile : public QMimeData {
 public:
  LeavingFile(TextView path, TextView shown);

  QStringList formats() const override;

 protected:
  QVariant retrieveData(const QString& format, QMetaType type) const override;

 private:
  Text path_;
  QString name_;
  mutable QByteArray address_;
};

}  // namespace ovalia::desktop
