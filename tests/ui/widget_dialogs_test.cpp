#include "ui/widget_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "tests/support/box_answerer.h"
#include "tests/support/printers.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

class Boxes : public testing::Test {
 protected:
  Boxes() { Window.show(); }

  // Does `act` while the next box is open.
  static void Meanwhile(const std::function<void()>& act) { QTimer::singleShot(0, act); }

  QWidget Window;
  WidgetDialogs Dialogs{Window};
};

TEST_F(Boxes, ReturnTheButtonThatWasPressed) {
  Meanwhile([] { Answer(u"t"_s, u"OK"_s); });
  EXPECT_EQ(Dialogs.MessageBox(u"x"_s, u"t"_s, Buttons::OkCancel), Button::Ok);
  Meanwhile([] { Answer(u"t"_s, u"Cancel"_s); });
  EXPECT_EQ(Dialogs.MessageBox(u"x"_s, u"t"_s, Buttons::OkCancel), Button::Cancel);
  Meanwhile([] { Answer(u"t"_s, u"Yes"_s); });
  EXPECT_EQ(Dialogs.MessageBox(u"x"_s, u"t"_s, Buttons::YesNo), Button::Yes);
  Meanwhile([] { Answer(u"t"_s, u"No"_s); });
  EXPECT_EQ(Dialogs.MessageBox(u"x"_s, u"t"_s, Buttons::YesNo), Button::No);
}

TEST_F(Boxes, EscapeAndTheCloseBoxRefuse) {
  Meanwhile([] { TopDialog()->close(); });
  EXPECT_EQ(Dialogs.MessageBox(u"x"_s, u"t"_s, Buttons::OkCancel), Button::Cancel);
  Meanwhile([] { QTest::keyClick(TopDialog(), Qt::Key_Escape); });
  EXPECT_EQ(Dialogs.MessageBox(u"x"_s, u"t"_s, Buttons::Ok), Button::Ok);
  Meanwhile([] { QTest::keyClick(TopDialog(), Qt::Key_Escape); });
  EXPECT_EQ(Dialogs.InputBox(u"x"_s, u"t"_s, u"proposal"_s), QString());
}

const QList<MenuItem> kItems{{.Caption = u"uno"_s, .Visible = false}, {.Caption = u"dos"_s}, {.Caption = u"tres"_s}};

TEST_F(Boxes, AMenuReturnsTheIndexOfItsItemHiddenOnesCounted) {
  Meanwhile([] {
    EXPECT_EQ(QApplication::activePopupWidget()->accessibleName(), u"Menú"_s);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
  });
  EXPECT_EQ(Dialogs.PopUpMenu(u"Mnu"_s, u"&Menú"_s, kItems), 1) << "the first that shows";
  Meanwhile([] {
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
  });
  EXPECT_EQ(Dialogs.PopUpMenu(u"Mnu"_s, u"&Menú"_s, kItems), 2);
  Meanwhile([] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape); });
  EXPECT_EQ(Dialogs.PopUpMenu(u"Mnu"_s, u"&Menú"_s, kItems), std::nullopt);
}

TEST_F(Boxes, ABoxOrTheEndOfTheWindowDismissesAMenu) {
  Meanwhile([this] {
    Meanwhile([] {
      EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
      Answer(u"t"_s, u"OK"_s);
    });
    Dialogs.MessageBox(u"x"_s, u"t"_s, Buttons::Ok);
  });
  EXPECT_EQ(Dialogs.PopUpMenu(u"Mnu"_s, u"&Menú"_s, kItems), std::nullopt);
  Meanwhile([this] { Dialogs.CloseAll(); });
  EXPECT_EQ(Dialogs.PopUpMenu(u"Mnu"_s, u"&Menú"_s, kItems), std::nullopt);
}

TEST_F(Boxes, AQuestionIsAnsweredByItsButtonsAlone) {
  Meanwhile([] {
    QTest::keyClick(TopDialog(), Qt::Key_Escape);
    TopDialog()->close();
    ASSERT_NE(TopDialog(), nullptr);
    EXPECT_TRUE(TopDialog()->isVisible());
    Answer(u"t"_s, u"Yes"_s);
  });
  EXPECT_EQ(Dialogs.MessageBox(u"x"_s, u"t"_s, Buttons::YesNo), Button::Yes);
}

TEST_F(Boxes, CutATextThatFitsNoScreen) {
  Meanwhile([] { EXPECT_EQ(Answer(u"t"_s, u"OK"_s).size(), 1500); });
  Dialogs.MessageBox(QString(1 << 20, u'x'), u"t"_s, Buttons::Ok);
}

TEST_F(Boxes, EnterTakesTheFirstButton) {
  Meanwhile([] { QTest::keyClick(TopDialog(), Qt::Key_Return); });
  EXPECT_EQ(Dialogs.MessageBox(u"x"_s, u"t"_s, Buttons::YesNo), Button::Yes);
  Meanwhile([] { QTest::keyClick(TopDialog(), Qt::Key_Return); });
  EXPECT_EQ(Dialogs.MessageBox(u"x"_s, u"t"_s, Buttons::OkCancel), Button::Ok);
}

TEST_F(Boxes, ShowMarkupAsTextAndLineBreaksAsLines) {
  Meanwhile([] {
    const auto* box = qobject_cast<QMessageBox*>(TopDialog());
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_EQ(Answer(u"<b>t</b>"_s, u"OK"_s), u"<b>a</b>\nb"_s);
  });
  Dialogs.MessageBox(u"<b>a</b>\r\nb"_s, u"<b>t</b>"_s, Buttons::Ok);
  Meanwhile([] {
    for (const QLabel* label : TopDialog()->findChildren<QLabel*>()) EXPECT_EQ(label->textFormat(), Qt::PlainText);
    TopDialog()->reject();
  });
  Dialogs.InputBox(u"<b>a</b>"_s, u"t"_s, {});
}

TEST_F(Boxes, ShowControlCharactersAsReplacements) {
  Meanwhile([] { EXPECT_EQ(Answer(u"t"_s, u"OK"_s), u"A\ufffdna\nb"_s); });
  Dialogs.MessageBox(u"A\0na\r\nb"_s, u"t"_s, Buttons::Ok);
}

TEST_F(Boxes, WithoutATitleHaveTheNameOfTheProgram) {
  Meanwhile([] { Answer(u"Brontavia"_s, u"OK"_s); });
  Dialogs.MessageBox(u"x"_s, {}, Buttons::Ok);
}

TEST_F(Boxes, CarryTheSignOfWhatTheyAre) {
  const auto icon_of = [this](const QString& title, Buttons buttons) {
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    Meanwhile([&icon] {
      icon = qobject_cast<QMessageBox*>(TopDialog())->icon();
      TopDialog()->reject();
    });
    Dialogs.MessageBox(u"x"_s, title, buttons);
    return icon;
  };
  EXPECT_EQ(icon_of(u"Error"_s, Buttons::Ok), QMessageBox::Critical);
  EXPECT_EQ(icon_of({}, Buttons::Ok), QMessageBox::Information);
  EXPECT_EQ(icon_of(u"t"_s, Buttons::OkCancel), QMessageBox::Question);
  EXPECT_EQ(icon_of(u"t"_s, Buttons::YesNo), QMessageBox::Question);
}

TEST_F(Boxes, AnInputReturnsWhatWasTypedUnchanged) {
  Meanwhile([] { AnswerInput(u"t"_s, u"  <b>Ana</b> "_s); });
  EXPECT_EQ(Dialogs.InputBox(u"x"_s, u"t"_s, u"Servidor"_s), u"  <b>Ana</b> "_s);
  Meanwhile([] { QTest::keyClick(TopDialog(), Qt::Key_Return); });
  EXPECT_EQ(Dialogs.InputBox(u"x"_s, u"t"_s, u"Servidor"_s), u"Servidor"_s);
}

TEST_F(Boxes, NestedOnesAllCloseTogether) {
  Button inner = Button::Yes;
  Meanwhile([&] {
    Meanwhile([&] { Dialogs.CloseAll(); });
    inner = Dialogs.MessageBox(u"inner"_s, u"t"_s, Buttons::YesNo);
  });
  EXPECT_EQ(Dialogs.MessageBox(u"outer"_s, u"t"_s, Buttons::OkCancel), Button::Cancel);
  EXPECT_EQ(inner, Button::No);
}

// ---- A file to write ----

// In a folder that holds one file already.
class FilesToWrite : public Boxes {
 protected:
  FilesToWrite() {
    QFile file(Held);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  }

  QString Ask(const QString& path) {
    return Dialogs.SaveFile({.Title = Title, .Filter = u"x (*.*)|*.*"_s, .Path = path});
  }

  // Has the open file dialog take its file, and does `answer` while its question is open.
  static void Take(const std::function<void()>& answer) {
    Meanwhile(answer);
    TopDialog()->accept();
  }

  const QString Title = u"Guardar"_s;
  const QTemporaryDir Folder;
  const QString Held = Folder.filePath(u"<b>held.fen"_s);
  const QString Question = u"El archivo <b>held.fen ya existe. ¿Desea reemplazarlo?"_s;
};

TEST_F(FilesToWrite, AreTakenAtOnceWhenThereIsNone) {
  const QString path = Folder.filePath(u"new.fen"_s);
  Meanwhile([] { TopDialog()->accept(); });
  EXPECT_EQ(Ask(path), path);
}

TEST_F(FilesToWrite, AreConfirmedWhenTheyExist) {
  Meanwhile([this] {
    QDialog* dialog = TopDialog();
    Take([this] {
      const auto* box = qobject_cast<QMessageBox*>(TopDialog());
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->textFormat(), Qt::PlainText);
      EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No));
      EXPECT_EQ(Answer(Title, u"No"_s), Question);
    });
    EXPECT_EQ(TopDialog(), dialog) << "to choose again";
    EXPECT_EQ(qobject_cast<QFileDialog*>(dialog)->selectedFiles(), QStringList(Held));
    Take([this] { EXPECT_EQ(Answer(Title, u"Yes"_s), Question); });
  });
  EXPECT_EQ(Ask(Held), Held);
}

TEST_F(FilesToWrite, AreNotAskedForOnceTheWindowHasEnded) {
  Meanwhile([this] {
    Take([this] {
      Dialogs.CloseAll();
      EXPECT_EQ(TopDialog(), nullptr);
    });
  });
  EXPECT_EQ(Ask(Held), QString());
  EXPECT_EQ(TopDialog(), nullptr);
}

TEST_F(FilesToWrite, AreNotFoldersWhichAreEnteredUnasked) {
  ASSERT_TRUE(QDir(Folder.path()).mkdir(u"inner"_s));
  Meanwhile([this] {
    auto* dialog = qobject_cast<QFileDialog*>(TopDialog());
    dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(u"inner"_s);
    Take([this, dialog] {
      EXPECT_EQ(TopDialog(), dialog);
      EXPECT_EQ(dialog->directory().dirName(), u"inner"_s);
      Dialogs.CloseAll();
    });
  });
  EXPECT_EQ(Ask(Folder.path()), QString());
}

}  // namespace
}  // namespace brontavia::test
