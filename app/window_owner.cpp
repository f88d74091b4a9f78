#include "app/window_owner.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <cstdlib>
#include <memory>

#include "app/configuration.h"
#include "app/form1.h"
#include "app/form2.h"
#include "app/games.h"
#include "net/tcp_connection.h"
#include "ui/game_window.h"

namespace brontavia {

using namespace Qt::StringLiterals;

// Beside the executable there is a link to the manual; whatever shows it can know it by its own place.
WindowOwner::WindowOwner(const QString& directory)
    : manual_(QFileInfo(QDir(directory).filePath(u"manual/index.html"_s)).canonicalFilePath()) {
  values_.ConnectionPort = ReadConnectionPort(directory);
}

WindowOwner::~WindowOwner() { delete window_; }

void WindowOwner::ShowStart() {
  auto* form = new Form1(values_.ConnectionPort, manual_);
  connect(form, &Form1::RoleChosen, this, [this](Role role) {
    values_.PlayerRole = role;
    ShowSelection();
  });
  connect(form, &Form1::CloseRequested, this, [this] { WindowFinished(AfterWindow::ProcessEnds); });
  Open(form);
}

void WindowOwner::TranslateStandardButtons() {
  if (!standard_buttons_.isEmpty()) return;
  if (standard_buttons_.load(u"qtbase_es"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&standard_buttons_);
  }
}

void WindowOwner::ShowSelection() {
  TranslateStandardButtons();
  auto* form = new Form2;
  connect(form, &Form2::GameChosen, this, &WindowOwner::ChooseGame);
  connect(form, &Form2::LeaveRequested, this, [this] { WindowFinished(AfterWindow::ProcessEnds); });
  Open(form);
}

void WindowOwner::ChooseGame(int index, const QString& name) {
  values_.SelectedGameIndex = static_cast<std::int16_t>(index);
  values_.SelectedGameName = name;
  ShowGame(Games()[static_cast<std::size_t>(index)].MakeWindow(values_, std::make_unique<TcpConnection>()));
}

void WindowOwner::ShowGame(GameWindow* game) {
  connect(game, &GameWindow::Finished, this, &WindowOwner::WindowFinished);
  Open(game);
  game->Load();
}

void WindowOwner::WindowFinished(AfterWindow after) {
  if (after == AfterWindow::Selection) {
    ShowSelection();
    return;
  }
  CloseWindow();
  QCoreApplication::exit(after == AfterWindow::ProcessEndsFailed ? EXIT_FAILURE : EXIT_SUCCESS);
}

void WindowOwner::Open(QWidget* window) {
  const bool full_screen = window_ != nullptr && window_->isFullScreen();
  CloseWindow();
  window_ = window;
  if (full_screen) {
    window_->showFullScreen();
  } else {
    window_->show();
  }
}

void WindowOwner::CloseWindow() {
  if (!window_) return;
  window_->hide();
  window_->deleteLater();
  window_.clear();
}

}  // namespace brontavia
