#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "desktop/CardView.h"
#include "desktop/CardWindow.h"
#include "desktop/QtText.h"
#include "forms/CardForm.h"
#include "tests/deskkit/Keyboard.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia::desktop {

// A control's or tool's name as the toolkit writes it.
QString qname(TextView name);

using deskkit::eventually;

// A key with its text, of any alphabet.
void key(QWidget* widget, int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
         const QString& text = {});
void typeText(QWidget* widget, const QString& text);

// Tests of windows: forms of the logic, drawn by the toolkit without a screen, over the doubles of the kit.
class DeskTest : public kit::LogicTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Shows the form modally and runs `actions` while it is up; the form must be gone afterwards, and is hidden
  // when the actions left it there.
  void whileShown(forms::Form& form, const std::function<void()>& actions);

  static CardWindow* windowOf(const forms::Form& form);
  static QWidget* widget(const forms::Form& form, TextView name);

  // The part of a control's widget that is typed into.
  static QWidget* target(const forms::Form& form, TextView name);
  static QString shown(const forms::Form& form, TextView name);
  static Text active(forms::Form& form);
};

}  // namespace ovalia::desktop
