#include "app/window_owner.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

#include "app/games.h"
#include "tests/support/box_answerer.h"
#include "tests/support/printers.h"
#include "tests/support/waiting.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

// The one window that is open; fails when there are more.
QWidget* OpenWindow() {
  QWidget* open = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible() || qobject_cast<QDialog*>(window) != nullptr) continue;
    EXPECT_EQ(open, nullptr) << "two windows at once";
    open = window;
  }
  return open;
}

// ---- For the user's script ----

bool Shows(const QString& name) {
  return Eventually([&] { return OpenWindow() != nullptr && OpenWindow()->objectName() == name; });
}

void Press(const QString& button) {
  Post([button] { OpenWindow()->findChild<QPushButton*>(button)->click(); });
}

void Close() {
  Post([] { OpenWindow()->close(); });
}

// Chooses the game at `row` of List1 with Enter; returns its text.
QString Choose(int row) {
  Post([row] {
    auto* list = OpenWindow()->findChild<QListWidget*>(u"List1"_s);
    list->setCurrentRow(row);
    QTest::keyClick(list, Qt::Key_Return);
  });
  return Games()[static_cast<std::size_t>(row)].Window.ListEntry.toString();
}

class WindowOwnerTest : public testing::Test {
 protected:
  WindowOwnerTest() { Owner.ShowStart(); }

  QTemporaryDir Directory;
  WindowOwner Owner{Directory.path()};
};

TEST_F(WindowOwnerTest, FollowEachOtherOneAtATime) {
  AsUser([] {
    EXPECT_TRUE(Shows(u"Form1"_s));
    Press(u"Command1(1)"_s);
    EXPECT_TRUE(Shows(u"Form2"_s));
    Choose(0);
    EXPECT_TRUE(Shows(u"FormTER"_s));
    const QPointer<QWidget> first = OnGui([] { return OpenWindow(); });
    EXPECT_TRUE(first->findChild<QWidget*>(u"FrCliente"_s)->isVisible());
    Close();
    Answer(u"Tres en raya"_s, u"Sí"_s);
    EXPECT_TRUE(Shows(u"Form2"_s));
    EXPECT_TRUE(Eventually([&] { return first.isNull(); }));
    Choose(0);
    EXPECT_TRUE(Shows(u"FormTER"_s));
    EXPECT_TRUE(OnGui([] { return OpenWindow()->findChild<QWidget*>(u"FrCliente"_s)->isVisible(); }))
        << "the role stays";
  });
}

TEST_F(WindowOwnerTest, EveryGameOpensItsWindowAndComesBackToTheSelection) {
  AsUser([] {
    Press(u"Command1(1)"_s);
    for (int row = 0; row < static_cast<int>(Games().size()); ++row) {
      const WindowTraits& window = Games()[static_cast<std::size_t>(row)].Window;
      EXPECT_TRUE(Shows(u"Form2"_s));
      Choose(row);
      EXPECT_TRUE(Shows(window.Window.toString()));
      EXPECT_EQ(OnGui([] { return OpenWindow()->windowTitle(); }), window.Caption);
      Close();
      if (window.CloseQuestionTitle) Answer(window.CloseQuestionTitle->toString(), u"Sí"_s);
    }
    EXPECT_TRUE(Shows(u"Form2"_s));
  });
  EXPECT_EQ(Owner.Values().PlayerRole, Role::Client);
  EXPECT_EQ(Owner.Values().SelectedGameIndex, 4);
  EXPECT_EQ(Owner.Values().SelectedGameName, u"Ajedrez"_s);
}

TEST_F(WindowOwnerTest, ClosingTheStartWindowEndsTheProcess) {
  EXPECT_EQ(AsUser([] {
              Close();
              EXPECT_TRUE(Eventually([] { return OpenWindow() == nullptr; }));
            }),
            0);
}

TEST_F(WindowOwnerTest, LeavingTheSelectionEndsTheProcess) {
  EXPECT_EQ(AsUser([] {
              Press(u"Command1(0)"_s);
              EXPECT_TRUE(Shows(u"Form2"_s));
              Press(u"Command1"_s);
              EXPECT_TRUE(Eventually([] { return OpenWindow() == nullptr; }));
            }),
            0);
}

TEST_F(WindowOwnerTest, ClosingTheSelectionEndsTheProcess) {
  EXPECT_EQ(AsUser([] {
              Press(u"Command1(0)"_s);
              EXPECT_TRUE(Shows(u"Form2"_s));
              Close();
              EXPECT_TRUE(Eventually([] { return OpenWindow() == nullptr; }));
            }),
            0);
}

TEST_F(WindowOwnerTest, AnsweringNoToTheCloseQuestionEndsTheProcess) {
  EXPECT_EQ(AsUser([] {
              Press(u"Command1(1)"_s);
              EXPECT_TRUE(Shows(u"Form2"_s));
              Choose(0);
              EXPECT_TRUE(Shows(u"FormTER"_s));
              Close();
              Answer(u"Tres en raya"_s, u"No"_s);
              EXPECT_TRUE(Eventually([] { return OpenWindow() == nullptr; }));
            }),
            0);
}

TEST_F(WindowOwnerTest, F11FillsTheScreenInEachUntilItIsPressedAgain) {
  AsUser([] {
    const auto press_f11 = [] {
      EXPECT_TRUE(Eventually([] { return OpenWindow()->isActiveWindow(); }));
      OnGui([] { QTest::keyClick(OpenWindow(), Qt::Key_F11); });
    };
    const auto fills_the_screen = [] { return OnGui([] { return OpenWindow()->isFullScreen(); }); };
    press_f11();
    EXPECT_TRUE(fills_the_screen());
    Press(u"Command1(1)"_s);
    EXPECT_TRUE(Shows(u"Form2"_s));
    EXPECT_TRUE(fills_the_screen()) << "the next window takes it over";
    press_f11();
    EXPECT_FALSE(fills_the_screen());
    Choose(0);
    EXPECT_TRUE(Shows(u"FormTER"_s));
    EXPECT_FALSE(fills_the_screen());
    press_f11();
    EXPECT_TRUE(fills_the_screen());
  });
}

// A port that somebody else listens on is told, and the process fails.
TEST(WindowOwnerPort, APortInUseEndsTheProcessWithAFailure) {
  QTcpServer taken;
  ASSERT_TRUE(taken.listen(QHostAddress::Any));
  const QTemporaryDir directory;
  QFile configuration(directory.filePath(u"Brontavia.ini"_s));
  ASSERT_TRUE(configuration.open(QIODevice::WriteOnly));
  configuration.write(QByteArray::number(taken.serverPort()));
  configuration.close();
  WindowOwner owner(directory.path());
  EXPECT_EQ(owner.Values().ConnectionPort, taken.serverPort());
  owner.ShowStart();
  EXPECT_EQ(AsUser([] {
              Press(u"Command1(0)"_s);
              EXPECT_TRUE(Shows(u"Form2"_s));
              Choose(0);
              Answer(u"Error"_s, u"Aceptar"_s);
              EXPECT_TRUE(Eventually([] { return OpenWindow() == nullptr; }));
            }),
            1);
}

}  // namespace
}  // namespace brontavia::test
