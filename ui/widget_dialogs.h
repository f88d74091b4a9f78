// The dialogs and pop-up menus on screen. Every text is shown as plain text.
#pragma once

#include <QFileDialog>
#include <QList>
#include <QMenu>
#include <QPointer>

#include "seams/dialogs.h"

namespace brontavia {

class WidgetDialogs : public Dialogs {
 public:
  // `parent` outlives the dialogs.
  explicit WidgetDialogs(QWidget& parent) : parent_(parent) {}

  Button MessageBox(const QString& text, const QString& title, Buttons buttons) override;
  QString InputBox(const QString& prompt, const QString& title, const QString& proposal) override;
  QString OpenFile(const FileQuestion& question) override;
  QString SaveFile(const FileQuestion& question) override;
  // At the cursor of the widget that has the focus.
  std::optional<int> PopUpMenu(const QString& name, const QString& title, const QList<MenuItem>& items) override;
  void Dismiss(const QString& text) override;
  void CloseAll() override;
  [[nodiscard]] bool IsShowing() const override;

 private:
  QString AskForFile(QFileDialog& dialog, const FileQuestion& question);
  // Shows `dialog` until it is done; returns its result.
  int Run(QDialog& dialog);

  QWidget& parent_;
  QList<QPointer<QDialog>> open_;
  QPointer<QMenu> menu_;
};

}  // namespace brontavia
