// The start window and the game selection.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "app/form1.h"
#include "app/form2.h"
#include "app/games.h"
#include "tests/support/printers.h"
#include "tests/support/waiting.h"
#include "ui/text_box.h"

namespace brontavia::test {
namespace {

using namespace Qt::StringLiterals;

QString Text(const QWidget& window, const QString& box) { return window.findChild<TextBox*>(box)->toPlainText(); }

// ---- Form1 ----

TEST(Form1Window, TellsAPortOnlyWhenItIsNotTheDefault) {
  EXPECT_EQ(Text(Form1(34567), u"Text1"_s), u"Seleccione cómo desea jugar."_s);
  EXPECT_EQ(Text(Form1(40000), u"Text1"_s), u"Seleccione cómo desea jugar. Puerto de conexión: 40000"_s);
  EXPECT_EQ(Text(Form1(0), u"Text1"_s), u"Seleccione cómo desea jugar. Puerto de conexión: 0"_s);
  EXPECT_EQ(Text(Form1(-5), u"Text1"_s), u"Seleccione cómo desea jugar. Puerto de conexión: -5"_s);
}

TEST(Form1Window, OpensWithTheFocusInItsFirstTextAndNothingExplained) {
  Form1 form(34567);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  EXPECT_EQ(form.windowTitle(), u"BRONTAVIA"_s);
  EXPECT_TRUE(form.findChild<TextBox*>(u"Text1"_s)->hasFocus());
  EXPECT_EQ(Text(form, u"Text2"_s), QString());
  EXPECT_FALSE(form.findChild<QLabel*>(u"LBNombre"_s)->text().isEmpty());
}

TEST(Form1Window, AFocusedButtonExplainsItsRoleAndSelectsTheWholeText) {
  Form1 form(40000);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  auto* text2 = form.findChild<TextBox*>(u"Text2"_s);
  const QString server =
      u"Si elige esta opción,para poder jugar deberá:\n"
      u"· averiguar su IP externa y proporcionársela al otro jugador\n"
      u"· Permitir el paso de información por el puerto seleccionado (puerto 40000 de tcp). Para ello puede necesitar "
      u"abrir este puerto en su router, abrirlo en el firewall y si windows le muestra un aviso de que este programa "
      u"se ha bloqueado, elegir la opción de desbloquear o de permitir según la qe le aparezca.\n"
      u"Es necesario que uno de los jugadores actúe como servidor y el otro como cliente."_s;
  const QString client =
      u"Si elige esta opción, deberá pedirle al otro jugador que le proporcione su IP externa, e introducir este dato "
      u"cuando se le pida el nombre o dirección del equipo con el que se quiere conectar.\n"
      u"Es necesario que uno de los jugadores actúe como servidor y el otro como cliente."_s;
  QTest::keyClick(&form, Qt::Key_Tab);
  EXPECT_EQ(text2->toPlainText(), server);
  EXPECT_EQ(text2->textCursor().selectedText().size(), server.size());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(text2->toPlainText(), client);
  EXPECT_EQ(text2->textCursor().selectionStart(), 0);
  EXPECT_EQ(text2->textCursor().selectedText().size(), client.size());
}

TEST(Form1Window, ItsButtonsChooseTheRole) {
  Form1 form(34567);
  std::vector<Role> chosen;
  QObject::connect(&form, &Form1::RoleChosen, &form, [&](Role role) { chosen.push_back(role); });
  EXPECT_EQ(form.findChild<QPushButton*>(u"Command1(0)"_s)->text(), u"Jugar como servidor"_s);
  EXPECT_EQ(form.findChild<QPushButton*>(u"Command1(1)"_s)->text(), u"Jugar como cliente"_s);
  form.findChild<QPushButton*>(u"Command1(0)"_s)->click();
  form.findChild<QPushButton*>(u"Command1(1)"_s)->click();
  EXPECT_EQ(chosen, (std::vector<Role>{Role::Server, Role::Client}));
}

// ---- Form2 ----

TEST(Form2Window, ListsTheGamesWithTheFirstSelected) {
  const Form2 form;
  const auto* list = form.findChild<QListWidget*>(u"List1"_s);
  QStringList entries;
  for (int i = 0; i < list->count(); ++i) entries << list->item(i)->text();
  EXPECT_EQ(entries,
            QStringList({u"TRES EN RAYA"_s, u"BATALLA NAVAL"_s, u"Mini-Estratega"_s, u"Estratega"_s, u"Ajedrez"_s}));
  EXPECT_EQ(list->currentRow(), 0);
  EXPECT_EQ(Text(form, u"Text1"_s), u"Elija a qué juego desea jugar. Los dos jugadores deben escoger el mismo."_s);
  EXPECT_EQ(form.findChild<QPushButton*>(u"Command1"_s)->text(), u"SALIR"_s);
  EXPECT_EQ(form.windowTitle(), u"BRONTAVIA"_s);
}

TEST(Form2Window, EnterAndADoubleClickChooseASingleClickDoesNot) {
  Form2 form;
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  auto* list = form.findChild<QListWidget*>(u"List1"_s);
  EXPECT_TRUE(list->hasFocus());
  QSignalSpy chosen(&form, &Form2::GameChosen);
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen[0][0].toInt(), 1);
  EXPECT_EQ(chosen[0][1].toString(), u"BATALLA NAVAL"_s);
  const QPoint third = list->visualItemRect(list->item(2)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, third);
  EXPECT_EQ(chosen.count(), 1);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, third);
  ASSERT_EQ(chosen.count(), 2);
  EXPECT_EQ(chosen[1][0].toInt(), 2);
}

TEST(Form2Window, WithoutASelectionChoosesNothing) {
  Form2 form;
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  auto* list = form.findChild<QListWidget*>(u"List1"_s);
  QSignalSpy chosen(&form, &Form2::GameChosen);
  list->setCurrentRow(-1);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(chosen.count(), 0) << "nothing is current";
  const QPoint third = list->visualItemRect(list->item(2)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, third);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier, third);
  ASSERT_EQ(list->currentRow(), 2);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(chosen.count(), 0) << "current, but deselected";
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, third);
  QTest::keyClick(list, Qt::Key_Return);
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen[0][0].toInt(), 2);
  EXPECT_EQ(chosen[0][1].toString(), u"Mini-Estratega"_s);
}

}  // namespace
}  // namespace brontavia::test
