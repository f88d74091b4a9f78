#include <gtest/gtest.h>

#include <QTest>

#include "tests/support/accessible_events.h"
#include "tests/support/printers.h"
#include "ui/text_box.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

// A text box and another control that can take the focus.
class SpokenText : public testing::Test {
 protected:
  SpokenText() {
    Other.setFocusPolicy(Qt::StrongFocus);
    Window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window));
    Box.AddLine(u"first"_s);
  }

  static int CursorEvents() {
    return static_cast<int>(AccessibleEvents::Of(QAccessible::TextSelectionChanged).size() +
                            AccessibleEvents::Of(QAccessible::TextCaretMoved).size());
  }

  void WriteEverything() {
    AccessibleEvents::Forget();
    Box.AddLine(u"second"_s);
    Box.AppendText(u" more"_s);
    Box.SelectAll();
    Box.SetText(u"other"_s);
  }

  AccessibleEvents Events;
  QWidget Window;
  TextBox Box{u"TBMensajes"_s, u"Mensajes"_s, &Window};
  QWidget Other{&Window};
};

TEST_F(SpokenText, WhatTheProgramWritesMovesNoCursorWithoutTheFocus) {
  Other.setFocus();
  WriteEverything();
  EXPECT_EQ(CursorEvents(), 0) << "it is announced, and would be spoken again";
}

TEST_F(SpokenText, NorWithIt) {
  Box.setFocus();
  WriteEverything();
  EXPECT_EQ(CursorEvents(), 0);
}

TEST_F(SpokenText, NothingIsToldOfABoxThatCannotBeSeenButThatItHasGone) {
  AccessibleEvents::Forget();
  Box.hide();
  EXPECT_TRUE(AccessibleEvents::Of(QAccessible::ObjectHide).contains(u"Mensajes"_s));
  AccessibleEvents::Forget();
  WriteEverything();
  Box.setAccessibleName(u"Otros"_s);
  EXPECT_TRUE(AccessibleEvents::All().isEmpty());
  Box.show();
  EXPECT_TRUE(AccessibleEvents::Of(QAccessible::ObjectShow).contains(u"Otros"_s));
}

TEST_F(SpokenText, TheUsersOwnCursorIsToldWithTheFocus) {
  Box.setFocus();
  AccessibleEvents::Forget();
  QTest::keyClick(&Box, Qt::Key_Home, Qt::ControlModifier);
  QTest::keyClick(&Box, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_GE(CursorEvents(), 2);
}

}  // namespace
}  // namespace brontavia::test
