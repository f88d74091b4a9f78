#include "tests/support/box_answerer.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <memory>

#include "tests/support/waiting.h"

namespace brontavia::test {
namespace {

QDialog* WaitForBox(const QString& title) {
  QDialog* box = nullptr;
  const bool shown = Eventually([&] {
    box = TopDialog();
    return box != nullptr && box->windowTitle() == title;
  });
  EXPECT_TRUE(shown) << "no box titled " << title.toStdString() << "; on top is "
                     << (box == nullptr ? "none" : box->windowTitle().toStdString());
  return shown ? box : nullptr;
}

QAbstractButton* ButtonOf(const QDialog& dialog, const QString& caption) {
  for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
    if (button->text().remove(u'&') == caption) return button;
  }
  return nullptr;
}

QString Press(QDialog& dialog, const QString& caption) {
  const QPointer<QDialog> box(&dialog);
  QString text = OnGui([&] { return TextOf(dialog); });
  QAbstractButton* button = OnGui([&] { return ButtonOf(dialog, caption); });
  if (button == nullptr) {
    ADD_FAILURE() << "no button " << caption.toStdString();
    return text;
  }
  Post([button = QPointer(button)] {
    if (button) button->click();
  });
  EXPECT_TRUE(Eventually([&] { return box.isNull() || !box->isVisible(); }));
  return text;
}

}  // namespace

QDialog* TopDialog() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

QString TextOf(const QDialog& dialog) {
  if (const auto* message = qobject_cast<const QMessageBox*>(&dialog)) return message->text();
  if (const auto* input = qobject_cast<const QInputDialog*>(&dialog)) return input->labelText();
  return {};
}

QString Answer(const QString& title, const QString& button) {
  QDialog* dialog = WaitForBox(title);
  return dialog == nullptr ? QString() : Press(*dialog, button);
}

QString AnswerInput(const QString& title, const QString& typed, const QString& button) {
  QDialog* dialog = WaitForBox(title);
  if (dialog == nullptr) return {};
  OnGui([&] { qobject_cast<QInputDialog*>(dialog)->setTextValue(typed); });
  return Press(*dialog, button);
}

int AsUser(const std::function<void()>& script) {
  constexpr int kScriptEnded = -1;
  const std::unique_ptr<QThread> user(QThread::create([&] {
    script();
    Eventually([] {
      if (TopDialog() != nullptr) TopDialog()->reject();
      return TopDialog() == nullptr;
    });
    Post([] { QCoreApplication::exit(kScriptEnded); });
  }));
  user->start();
  const int code = QApplication::exec();
  while (!user->wait(1)) QCoreApplication::processEvents();
  QCoreApplication::processEvents();  // the script's own exit, should the program have been first
  return code;
}

}  // namespace brontavia::test
