// What the parts of a chess session ask of the session that they are parts of: to speak to the two players.
#pragma once

#include <QList>
#include <QString>
#include <functional>
#include <optional>

#include "net/player.h"
#include "seams/dialogs.h"

namespace brontavia {

class ChessHost {
 public:
  ChessHost() = default;
  ChessHost(const ChessHost&) = delete;
  ChessHost& operator=(const ChessHost&) = delete;
  virtual ~ChessHost() = default;

  [[nodiscard]] virtual Player OwnPlayer() const = 0;

  // Runs the handler of an event that is neither the user's nor the connection's.
  virtual void RunHandler(const std::function<void()>& handler) = 0;

  // TBEstado is replaced.
  virtual void SetStatus(const QString& text) = 0;
  virtual void AddPoint(Player player) = 0;

  // ---- Boxes. Other events are handled meanwhile; they throw WindowEnded in a window that has ended. ----

  virtual void Tell(const QString& text, const QString& title = {}) = 0;
  // The reason of an open box with `text` has ended: it closes itself.
  virtual void Dismiss(const QString& text) = 0;
  // Whether the answer is "Yes".
  virtual bool Confirm(const QString& text, const QString& title) = 0;
  // What was typed; empty when cancelled.
  virtual QString Ask(const QString& prompt, const QString& title, const QString& proposal = {}) = 0;
  // The path of the file; empty when cancelled.
  virtual QString AskFileToOpen(const FileQuestion& question) = 0;
  virtual QString AskFileToSave(const FileQuestion& question) = 0;
  // The index of the chosen item; nothing when the menu was dismissed.
  virtual std::optional<int> PopUp(const QString& menu, const QString& title, const QList<MenuItem>& items) = 0;

  // ---- Messages to the other player. What could not be sent has not happened: each returns false then, and the user
  // has been told. ----

  virtual bool Send(const QString& text) = 0;
  // These wait until the other side certainly has the text, and let other events be handled meanwhile.
  virtual bool SendAndWait(const QString& text) = 0;
  virtual bool SendUntilComplete(const QString& text) = 0;
};

}  // namespace brontavia
