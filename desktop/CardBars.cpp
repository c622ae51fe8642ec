#include "desktop/CardBars.h"

#include <QLayout>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QShortcutEvent>
#include <QStyleOptionToolButton>
#include <QToolButton>

#include "desktop/Icons.h"
#include "desktop/QtText.h"
#include "desktop/Scale.h"

namespace ovalia::desktop {

namespace {

constexpr double toolIcon = 255;  // twips

// The tool whose face is one command and whose arrow is another.
constexpr TextView splitTool = u"ID_BAdjuntar";

class SplitButton : public QToolButton {
 public:
  explicit SplitButton(QWidget* parent) : QToolButton(parent) {
    setPopupMode(MenuButtonPopup);
    setAutoRaise(true);
  }
  std::function<void()> arrowPressed;

 protected:
  void initStyleOption(QStyleOptionToolButton* option) const override {
    QToolButton::initStyleOption(option);
    option->features |= QStyleOptionToolButton::MenuButtonPopup | QStyleOptionToolButton::HasMenu;
  }
  void mousePressEvent(QMouseEvent* event) override {
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const QRect arrow =
        style()->subControlRect(QStyle::CC_ToolButton, &option, QStyle::SC_ToolButtonMenu, this);
    if (event->button() == Qt::LeftButton && arrow.contains(event->position().toPoint())) {
      if (arrowPressed) arrowPressed();
    } else {
      QToolButton::mousePressEvent(event);
    }
  }
};

// A letter that it shares with a button of the window is the button's.
class MenuBar : public QMenuBar {
 public:
  using QMenuBar::QMenuBar;

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::Shortcut) {
      const auto& pressed = static_cast<QShortcutEvent&>(*event);
      if (pressed.isAmbiguous())
        for (QPushButton* button : window()->findChildren<QPushButton*>())
          if (button->shortcut() == pressed.key()) return button->click(), true;
    }
    return QMenuBar::event(event);
  }
};

QString tipOf(const forms::ActiveToolBars::Tool& tool) {
  return tool.tip.empty() ? spoken(tool.caption) : toQt(tool.tip);
}

}  // namespace

CardBars::CardBars(std::shared_ptr<forms::ActiveToolBars> bars, QWidget* window, std::function<void()> before)
    : QObject(window),
      bars_(std::move(bars)),
      window_(window),
      before_(std::move(before)),
      menuBar_(new MenuBar(window)),
      toolBar_(new QToolBar(QStringLiteral("Herramientas"), window)) {
  toolBar_->setMovable(false);
  toolBar_->setContextMenuPolicy(Qt::PreventContextMenu);
  const int size = Scale::of(*window).pixels(toolIcon);
  toolBar_->setIconSize(QSize(size, size));
  toolBar_->layout()->setSpacing(0);
  toolBar_->setFocusPolicy(Qt::NoFocus);
  fill(*menuBar_, u"Menu");
  fill(*toolBar_, u"Herramientas");
  for (QToolButton* button : toolBar_->findChildren<QToolButton*>()) {
    button->setFocusPolicy(Qt::NoFocus);
    if (const QAction* shown = button->defaultAction()) button->setAccessibleName(shown->toolTip());
  }
}

void CardBars::choose(const std::function<void(forms::ActiveToolBars&)>& doing) {
  const QPointer<CardBars> self(this);
  const auto kept = bars_;
  before_();
  if (self) doing(*kept);
}

QAction* CardBars::action(const Text& id) {
  if (bars_->isMenu(id)) return menu(id)->menuAction();
  QAction*& made = actions_[id];
  if (made) return made;
  made = new QAction(this);
  made->setObjectName(toQt(id));
  made->setIcon(icon(id));
  connect(made, &QAction::triggered, this,
          [this, id] { choose([=](forms::ActiveToolBars& bars) { bars.userSelects(id); }); });
  follow(id);
  return made;
}

QMenu* CardBars::menu(const Text& id) {
  QMenu*& made = menus_[id];
  if (made) return made;
  QMenu* const menu = made = new QMenu(window_);
  menu->setObjectName(toQt(id));
  connect(menu, &QMenu::aboutToShow, this, [this, menu, id] {
    if (menu != popping_) choose([=](forms::ActiveToolBars& bars) { bars.userOpensMenu(id); });
  });
  fill(*menu, id);
  follow(id);
  return menu;
}

void CardBars::fill(QWidget& bar, TextView contents) {
  for (const Text& id : bars_->contents(contents)) {
    if (&bar == toolBar_ && id == splitTool) {
      addSplitButton(id);
    } else if (id.empty()) {
      auto* separator = new QAction(this);
      separator->setSeparator(true);
      bar.addAction(separator);
    } else {
      bar.addAction(action(id));
    }
  }
}

void CardBars::addSplitButton(const Text& id) {
  auto* button = new SplitButton(toolBar_);
  button->setObjectName(toQt(id) + QStringLiteral("_boton"));
  button->setIconSize(toolBar_->iconSize());
  button->setDefaultAction(action(id));
  button->setToolButtonStyle(Qt::ToolButtonIconOnly);
  button->arrowPressed = [this, button, id] {
    const QPoint below = button->mapTo(window_, QPoint(0, button->height()));
    const Scale scale = Scale::of(*window_);
    const forms::Point at{scale.twips(below.x()), scale.twips(below.y())};
    choose([=](forms::ActiveToolBars& bars) { bars.userPressesArrow(id, at); });
  };
  placements_[id] = toolBar_->addWidget(button);
}

void CardBars::follow(TextView id) {
  const auto tool = bars_->tool(id);
  const Text key(id);
  QAction* shown = nullptr;
  if (const auto menu = menus_.find(key); menu != menus_.end()) shown = menu->second->menuAction();
  if (const auto action = actions_.find(key); action != actions_.end()) shown = action->second;
  if (!shown) return;
  shown->setText(toQt(tool->caption));
  shown->setToolTip(tipOf(*tool));
  shown->setEnabled(tool->Enabled());
  shown->setVisible(tool->Visible());
  if (const auto place = placements_.find(key); place != placements_.end())
    place->second->setVisible(tool->Visible());
}

void CardBars::popUp(TextView id, const QPoint& global) {
  QMenu* shown = menu(Text(id));
  popping_ = shown;
  shown->popup(global);
  popping_ = nullptr;
}

}  // namespace ovalia::desktop
