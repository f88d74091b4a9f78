// The start window: asks whether to play as server or as client.
#pragma once

#include <QWidget>
#include <optional>

#include "net/process_values.h"
#include "ui/announcer.h"

class QPushButton;

namespace brontavia {

class GuideBox;
class OneLineLabel;

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
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Measures;

  QPushButton* MakeRoleButton(Role role);
  // Shows what a role means, or nothing.
  void Explain(std::optional<Role> role);
  [[nodiscard]] bool IsNarrow() const;
  [[nodiscard]] int ColumnWidth(const Measures& measures) const;
  [[nodiscard]] int ButtonWidth(const Measures& measures) const;
  // To which all parts but the explanation give way where height lacks.
  [[nodiscard]] Measures Tight() const;
  // Of all parts, the explanation as high as the longer of its texts.
  [[nodiscard]] int NeededHeight(const Measures& measures) const;
  void Arrange(const Measures& measures);

  std::int32_t port_;
  // The one that had the focus last: its explanation is read when no button is pointed at.
  std::optional<Role> focused_role_;
  QRect icon_;
  OneLineLabel* name_;
  OneLineLabel* motto_;
  GuideBox* text1_;
  QPushButton* server_button_;
  QPushButton* client_button_;
  GuideBox* text2_;
  OneLineLabel* credit_;
  Announcer announcer_;
};

}  // namespace brontavia
