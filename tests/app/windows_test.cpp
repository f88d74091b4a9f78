// The start window and the game selection.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <numeric>
#include <set>
#include <vector>

#include "app/form1.h"
#include "app/form2.h"
#include "app/games.h"
#include "app/version.h"
#include "tests/support/accessible_events.h"
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

void Point(QWidget& widget) {
  const QPointF middle = widget.rect().center();
  QEnterEvent event(middle, widget.mapTo(widget.window(), middle), widget.mapToGlobal(middle));
  QApplication::sendEvent(&widget, &event);
}

void Leave(QWidget& widget) {
  QEvent event(QEvent::Leave);
  QApplication::sendEvent(&widget, &event);
}

TEST(Form1Window, AFocusedButtonSaysTheWholeExplanationEachTime) {
  const AccessibleEvents events;
  Form1 form(34567);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  QStringList expected;
  for (int i = 0; i < 3; ++i) {
    QTest::keyClick(QApplication::focusWidget(), i < 2 ? Qt::Key_Tab : Qt::Key_Backtab);
    PassATurn();
    expected << Text(form, u"Text2"_s);
  }
  EXPECT_EQ(AccessibleEvents::Announcements(), expected);
  EXPECT_TRUE(expected[0].endsWith(u"el otro como cliente."_s)) << "nothing is cut off";
  EXPECT_NE(expected[0], expected[1]);
  EXPECT_EQ(expected[0], expected[2]);
  EXPECT_EQ(AccessibleEvents::Of(QAccessible::TextSelectionChanged), QStringList()) << "it would be said twice";
}

TEST(Form1Window, PointingAtAButtonExplainsItAndLeavingBringsTheFocusedOnesTextBack) {
  Form1 form(34567);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  auto* text2 = form.findChild<TextBox*>(u"Text2"_s);
  auto* server = form.findChild<QPushButton*>(u"Command1(0)"_s);
  auto* client = form.findChild<QPushButton*>(u"Command1(1)"_s);
  Point(*client);
  const QString of_client = text2->toPlainText();
  EXPECT_TRUE(of_client.startsWith(u"Si elige esta opción, deberá pedirle"_s));
  EXPECT_EQ(text2->textCursor().selectedText().size(), of_client.size());
  Leave(*client);
  EXPECT_EQ(text2->toPlainText(), QString()) << "no button has had the focus";
  server->setFocus();
  const QString of_server = text2->toPlainText();
  EXPECT_NE(of_server, of_client);
  Point(*client);
  EXPECT_EQ(text2->toPlainText(), of_client);
  Leave(*client);
  EXPECT_EQ(text2->toPlainText(), of_server);
  EXPECT_EQ(text2->textCursor().selectedText().size(), of_server.size());
  EXPECT_TRUE(server->hasFocus());
}

TEST(Form1Window, FitsSmallWindowsAndLargeFonts) {
  const QFont before = QApplication::font();
  for (const int pixels : {13, 24}) {
    QFont font = before;
    font.setPixelSize(pixels);
    QApplication::setFont(font);
    for (const QSize& size : {QSize(800, 600), QSize(1920, 1080), QSize(480, 640), QSize(440, 560)}) {
      SCOPED_TRACE(testing::Message() << pixels << " pixels, " << size.width());
      Form1 form(34567, u"/manual/index.html"_s);
      form.resize(size);
      form.show();
      ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
      auto* server = form.findChild<QPushButton*>(u"Command1(0)"_s);
      auto* client = form.findChild<QPushButton*>(u"Command1(1)"_s);
      server->setFocus();
      EXPECT_EQ(server->geometry().top() == client->geometry().top(), size.width() >= 560)
          << "one over the other where it is narrow";
      for (const auto* box : form.findChildren<TextBox*>()) {
        EXPECT_EQ(box->verticalScrollBar()->maximum(), 0) << box->objectName().toStdString();
        EXPECT_TRUE(size.width() < 800 || box->font().pixelSize() >= pixels) << box->objectName().toStdString();
      }
      const QList<QWidget*> parts = form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
      for (const QWidget* one : parts) {
        EXPECT_TRUE(form.rect().contains(one->geometry())) << one->objectName().toStdString();
        EXPECT_TRUE(std::ranges::none_of(parts, [&](const QWidget* other) {
          return one != other && one->geometry().intersects(other->geometry());
        })) << one->objectName().toStdString();
      }
    }
  }
  QApplication::setFont(before);
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

TEST(Form1Window, ItsLastLineTellsTheVersion) {
  const Form1 form(34567);
  EXPECT_EQ(form.findChild<QLabel*>(u"LBNombre"_s)->text(),
            u"Brontavia: cinco juegos de mesa para dos jugadores. Programa libre, GPL-3.0 o posterior."_s);
  EXPECT_EQ(form.findChild<QLabel*>(u"LBVersion"_s)->text(), u"Versión "_s + Version());
  EXPECT_FALSE(Version().isEmpty());
}

// Stands in for what shows web pages.
class Reader : public QObject {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(Reader)

 public:
  Reader() { QDesktopServices::setUrlHandler(u"file"_s, this, "Open"); }
  ~Reader() override { QDesktopServices::unsetUrlHandler(u"file"_s); }

  Q_INVOKABLE void Open(const QUrl& url) { Opened << url.toLocalFile(); }

  QStringList Opened;
};

TEST(Form1Window, OpensTheManualByKeyboard) {
  Reader reader;
  Form1 form(34567, u"/de/brontavia/manual/index.html"_s);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  form.findChild<QPushButton*>(u"Command1(1)"_s)->setFocus();
  auto* manual = form.findChild<QPushButton*>(u"CBManual"_s);
  for (int presses = 0; presses < 3 && !manual->hasFocus(); ++presses) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  ASSERT_TRUE(manual->hasFocus());
  EXPECT_EQ(QAccessible::queryAccessibleInterface(manual)->text(QAccessible::Name), u"Manual"_s);
  QTest::keyClick(manual, Qt::Key_Space);
  QTest::keyClick(manual, Qt::Key_Return);
  EXPECT_EQ(reader.Opened, QStringList(2, u"/de/brontavia/manual/index.html"_s));
}

TEST(Form1Window, TellsWhereTheManualIsWhenNothingCanShowIt) {
  const QByteArray path = qgetenv("PATH");
  qunsetenv("PATH");
  Form1 form(34567, u"/de/brontavia/manual/index.html"_s);
  form.findChild<QPushButton*>(u"CBManual"_s)->click();
  qputenv("PATH", path);
  EXPECT_EQ(Text(form, u"Text2"_s), u"El manual está en /de/brontavia/manual/index.html"_s);
}

TEST(Form1Window, OffersNoManualWhereThereIsNone) {
  Form1 form(34567);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  EXPECT_FALSE(form.findChild<QPushButton*>(u"CBManual"_s)->isVisible());
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

TEST(Form2Window, SaysWhatToDoAsItComes) {
  const AccessibleEvents events;
  Form2 form;
  form.show();
  const QStringList guidance{Text(form, u"Text1"_s)};
  EXPECT_TRUE(Eventually([&] { return AccessibleEvents::Announcements() == guidance; }));
}

TEST(Form2Window, ItsRowsFillTheListAndAreNeverLow) {
  Form2 form;
  auto* list = form.findChild<QListWidget*>(u"List1"_s);
  const auto row_heights = [list] {
    std::vector<int> heights;
    heights.reserve(Games().size());
    for (int row = 0; row < list->count(); ++row) heights.push_back(list->visualItemRect(list->item(row)).height());
    return heights;
  };
  form.resize(800, 600);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  for (const QSize& size : {QSize(800, 600), QSize(900, 743), QSize(500, 480)}) {
    form.resize(size);
    const std::vector<int> heights = row_heights();
    EXPECT_EQ(std::accumulate(heights.begin(), heights.end(), 0), list->viewport()->height()) << size.height();
    EXPECT_LE(std::ranges::max(heights) - std::ranges::min(heights), 1);
    EXPECT_EQ(list->verticalScrollBar()->maximum(), 0);
  }
  form.resize(form.minimumSize());
  EXPECT_GE(std::ranges::min(row_heights()), 56);
  EXPECT_EQ(list->verticalScrollBar()->maximum(), 0);
}

TEST(Form2Window, EveryGameHasAPictureOfItsOwn) {
  std::vector<QImage> pictures;
  for (const Game& game : Games()) {
    QImage picture(72, 72, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    game.PaintPicture(painter, QRectF(picture.rect()), QApplication::palette());
    painter.end();
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) colours.insert(picture.pixel(x, y));
    }
    EXPECT_GT(colours.size(), 4U) << game.Window.ListEntry.toString().toStdString();
    EXPECT_EQ(std::ranges::count(pictures, picture), 0) << game.Window.ListEntry.toString().toStdString();
    pictures.push_back(picture);
  }
}

// What is written beside the pictures does not change what is read aloud.
TEST(Form2Window, ItsRowsAreReadAloudByTheirNames) {
  Form2 form;
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(form.findChild<QListWidget*>(u"List1"_s));
  EXPECT_EQ(list->text(QAccessible::Name), u"Juegos"_s);
  ASSERT_EQ(list->childCount(), 5);
  EXPECT_EQ(list->child(1)->text(QAccessible::Name), u"BATALLA NAVAL"_s);
  EXPECT_EQ(list->child(1)->role(), QAccessible::ListItem);
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

#include "windows_test.moc"
