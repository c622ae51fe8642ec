#pragma once

#include <QTabWidget>
#include <map>

#include "host/HostCard.h"
#include "host/ListPane.h"

class QLineEdit;
class QPlainTextEdit;

namespace ovalia::host {

// A record of the agency as a page of the main window: its fields above, its lists of annotations below.
class CardPage : public QWidget {
 public:
  CardPage(std::shared_ptr<HostCard> card, QWidget* parent = nullptr);
  ~CardPage() override;

  HostCard& card() { return *card_; }
  ObjectRef contract() { return contract_; }

  ListPane* pane(TextView grid);
  void showPane(ListPane& pane);

  // Called when the caption may have changed, and when the record turned out to be deleted.
  std::function<void()> captionChanged = [] {};
  std::function<void()> gone = [] {};

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void buildFields();
  void buildLists();
  void refresh();
  void showCount(AnnotationList& list);
  void edited(const FieldDesign& field, const QString& text);
  void followCalls();

  std::shared_ptr<HostCard> card_;
  ObjectRef contract_;
  std::map<const FieldDesign*, QWidget*> fields_;
  std::vector<ListPane*> panes_;
  QTabWidget* pages_;
  QPushButton* save_;
  QPushButton* undo_;
  Text lastControl_;  // the grid or box on which the user was last
  bool filling_ = false;
};

}  // namespace ovalia::host
