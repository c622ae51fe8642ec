#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QTabWidget>

#include "host/CardPage.h"
#include "host/Contract.h"
#include "host/ListPage.h"

namespace ovalia::host {

// The agency's main window: opening lists and open cards as pages, and a status bar. It gives the workplace
// its application object and main form.
class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(Workplace& workplace);
  ~MainWindow() override;

  // Opens the card of a record, or goes to it where it is open already. Null when there is no such record any
  // more; the user has been told.
  CardPage* openCard(const HostForm& form, std::int32_t record);

  const Agency& agency() const { return workplace_.agency; }
  ListPage* listPage(const HostForm& form);
  ObjectRef activeForm();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  class Frame;

  void buildMenus();
  void moveNotes();
  void closePage(int index);
  void removePage(CardPage& page);
  void dropPage(CardPage& page);
  bool closeCard(CardPage& page);
  CardPage* cardAt(int index);
  void about();

  Workplace& workplace_;
  QTabWidget* pages_;
  QLabel* status_;
  std::shared_ptr<Frame> frame_;
};

}  // namespace ovalia::host
