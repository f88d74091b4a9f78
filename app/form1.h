// The start window: asks whether to play as server or as client.
#pragma once

#include <QWidget>

#include "net/process_values.h"

class QPushButton;

namespace brontavia {

class TextBox;

class Form1 : public QWidget {
  Q_OBJECT

 public:
  // `port` is told in the texts.
  explicit Form1(std::int32_t port);

  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  void RoleChosen(brontavia::Role role);
  void CloseRequested();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QPushButton* MakeRoleButton(Role role);
  void Explain(Role role);

  std::int32_t port_;
  TextBox* text2_;
  QPushButton* server_button_;
  QPushButton* client_button_;
};

}  // namespace brontavia
