#pragma once

#include <QDialog>
#include <QListWidget>

class QLineEdit;

namespace ovalia::host {

// Names to choose one or several of, with a search above them.
class PickDialog : public QDialog {
 public:
  PickDialog(const QString& title, const QStringList& names, const QStringList& chosen, bool several,
             QWidget* parent);

  QStringList chosen() const;

 private:
  void filter(const QString& wanted);

  bool several_;
  QLineEdit* wanted_;
  QListWidget* list_;
};

}  // namespace ovalia::host
