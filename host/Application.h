#pragma once

#include <QApplication>

namespace ovalia::host {

// The toolkit's application object. What a window's work lets escape - the database locked or gone in the
// middle of a list, a row that another user deleted - is told to the user and logged, and the program goes
// on.
class Application : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace ovalia::host
