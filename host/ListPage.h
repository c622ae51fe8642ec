#pragma once

#include <QLineEdit>
#include <QWidget>

#include "host/GridView.h"
#include "host/HostForms.h"
#include "host/Workplace.h"

namespace ovalia::host {

// The opening list of one kind of record: a search and the rows that it finds.
class ListPage : public QWidget {
 public:
  ListPage(const HostForm& form, Workplace& workplace, QWidget* parent = nullptr);

  const HostForm& form() const { return form_; }
  ObjectRef contract() { return contract_; }
  GridView& grid() { return *grid_; }

  void search(const QString& wanted);
  void reload();

  std::function<void(std::int32_t record)> opened = [](std::int32_t) {};

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  const HostForm& form_;
  Workplace& workplace_;
  QLineEdit* wanted_;
  GridView* grid_;
  dao::RecordsetRef rows_;
  ObjectRef contract_;
};

}  // namespace ovalia::host
