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
  // `port` is told in the texts. `manual` is the manual's first page; where it is empty nothing is offered to be read.
  explicit Form1(std::int32_t port, const QString& manual = {});

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
  QPushButton* MakeManualButton(const QString& manual);
  // Shows what a role means, or nothing.
  void Explain(std::optional<Role> role);
  [[nodiscard]] bool IsNarrow() const;
  [[nodiscard]] int ColumnWidth(const Measures& measures) const;
  [[nodiscard]] int ButtonWidth(const Measures& measures) const;
  // To which all parts but the explanation give way where height lacks.
  [[nodiscard]] Measures Tight() const;
  // Whether there is room for version and manual beside the credit, which may be written smaller; else they are below.
  [[nodiscard]] bool EndsInOneLine(int width) const;
  [[nodiscard]] int EndWidth() const;
  [[nodiscard]] int EndHeight(int width) const;
  // Of the longer of its texts. Kept for the width last asked about: to lay out two long texts is most of what
  // arranging the window takes.
  [[nodiscard]] int ExplanationHeight(int width) const;
  // Of all parts.
  [[nodiscard]] int NeededHeight(const Measures& measures) const;
  void Arrange(const Measures& measures);
  void ArrangeEnd(const QRect& area);

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
  mutable QSize explanation_;  // as wide as last asked about, and as high as the longer text is then
  OneLineLabel* credit_;
  OneLineLabel* version_;
  QPushButton* manual_;
  Announcer announcer_;
};

}  // namespace brontavia
