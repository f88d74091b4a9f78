// What the games share whose players first place their pieces, unseen by each other: how what was placed travels, and
// who is ready. What is shown and asked meanwhile, and in which order, each game tells itself.
#pragma once

#include <string_view>
#include <utility>

#include "net/game_flow.h"
#include "text/qt_text.h"

namespace brontavia {

class PlacingFlow : public GameFlow {
 public:
  using GameFlow::GameFlow;

  [[nodiscard]] bool PlacementMode() const { return placement_mode_; }
  [[nodiscard]] bool WaitingForOpponent() const { return waiting_for_opponent_; }
  [[nodiscard]] const PerPlayer<bool>& ReadyFlags() const { return ready_flags_; }

 protected:
  // The board is empty, and the own player places his pieces.
  void BeginPlacing() {
    placement_mode_ = true;
    ++placings_;
  }
  // How often that has begun; another number than before a wait says that a new game has begun meanwhile.
  [[nodiscard]] int Placings() const { return placings_; }
  // Sends what was placed and, once it has arrived, that the own player is ready. Lets other events be handled
  // meanwhile. False, and the own player is not ready, when the connection is lost or a new game begins before.
  bool SendPlaced(std::u16string_view placed) {
    const int placing = placings_;
    if (!SendAndWait(message::kPlaced.Token + ToQString(placed)) || placing != placings_) return false;
    if (!Send(message::kReady.Token.toString())) return false;
    ready_flags_[OwnPlayer()] = true;
    return true;
  }
  [[nodiscard]] bool BothReady() const { return ready_flags_ == PerPlayer<bool>{true, true}; }

  // Asks the player to wait for the other; closes itself once both are ready.
  void ShowWaitingBox(const QString& text) {
    waiting_box_ = text;
    ShowBox(text, {});
  }
  void CloseWaitingBox() {
    if (!waiting_box_.isEmpty()) Dismiss(std::exchange(waiting_box_, {}));
  }

  // Of the strip, while one of the players is still placing: who is ready, and who does what `placing` says.
  void DescribePlacing(Player player, QStringView placing, ScoreboardSide& side) const {
    if (session_.GameOver || !session_.TurnSettled || (OwnPlaced() && opponent_placed_)) return;
    const bool placed = player == OwnPlayer() ? OwnPlaced() : opponent_placed_;
    side.State = placed ? PlayerState::Ready : PlayerState::Placing;
    side.StateWord = placed ? QStringLiteral("Listo") : placing.toString();
  }
  [[nodiscard]] virtual bool OwnPlaced() const { return !placement_mode_; }

  bool opponent_placed_ = false;  // in this game; unlike the flags below, which a game may never clear
  bool placement_mode_ = true;
  bool waiting_for_opponent_ = false;
  PerPlayer<bool> ready_flags_;

 private:
  int placings_ = 0;
  QString waiting_box_;  // its text; empty when there is none
};

}  // namespace brontavia
