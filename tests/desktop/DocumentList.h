#pragma once

#include <QListWidget>

#include "tests/desktop/Desk.h"
#include "tests/desktop/SampleForm.h"

namespace ovalia::desktop {

// The list of documents of a form that is shown, with three of them, and the focus on it.
class DocumentListWidget : public DeskTest {
 protected:
  void up(const std::function<void()>& actions) {
    whileShown(*form, [&] {
      model = form->as<forms::ListView>(u"LsvDocu");
      for (const TextView name : {u"uno.doc", u"dos.txt", u"tres.xls"})
        model->Add({Text(name), Text(name), Text(name.substr(name.size() - 3))});
      list = qobject_cast<QListWidget*>(target(*form, u"LsvDocu"));
      list->doItemsLayout();
      form->userFocuses(*model);
      form->forget();
      actions();
    });
  }
  QPoint at(int row) { return list->visualItemRect(list->item(row)).center(); }
  void click(int row, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(list->viewport(), button, {},
                      row < 0 ? QPoint(list->viewport()->width() - 3, 3) : at(row));
  }

  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>();
  std::shared_ptr<forms::ListView> model;
  QListWidget* list = nullptr;
};

}  // namespace ovalia::desktop
