// What differs between the five game windows in connection, handshake and closing: one constant struct per window,
// side by side in window_traits.cpp.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>
#include <span>

#include "net/message_tokens.h"

namespace brontavia {

// How the address that the client's user types is treated.
enum class AddressBox {
  AsTyped,           // used as it stands
  BlankMeansLocal,   // asked with " " in RemoteAddress; exactly one blank means 127.0.0.1, all else is trimmed
  LocalBeforeAsking  // asked with 127.0.0.1 in RemoteAddress, which the answer replaces
};

// The line that reports who begins: opening, name, ". " and, where the window has an ending, the name again with it.
struct FirstTurnReport {
  QStringView MutualOpening;
  QStringView DrawOpening;
  QStringView Ending;              // empty: none
  QStringView EndingAtLateChoice;  // the server's, when both chose alike and the client's choice came second
};

struct WindowTraits {
  QStringView Window;                             // the window's name
  QStringView GameCode;                           // sent with the acceptance
  QStringView ListEntry;                          // in List1 of Form2
  QStringView Caption;                            // until the session starts
  QStringView CaptionSuffix;                      // after the player's name from then on
  QStringView RematchTitle;                       // of the question for another game
  std::optional<QStringView> CloseQuestionTitle;  // nothing: the window closes without a question
  AddressBox Address;
  bool ClientTextHasBreak;     // TbCli1: a line break before "ordenador"
  bool ClientTextEndsInBlank;  // TbCli1: a blank before the last line break
  bool BeepsForEveryText;
  QStringView FirstTurnQuestion;
  FirstTurnReport Report;
  QStringView NewGameOpening;                // of the last line of the "Nueva partida" box, before the starter's name
  QStringView NewGameEnding;                 // after it
  std::span<const Message* const> Messages;  // what the window understands, in the order in which it looks
};

extern const WindowTraits kFormTER;
extern const WindowTraits kFormBAR;
extern const WindowTraits kFormMES;
extern const WindowTraits kFormEST;
extern const WindowTraits kFormAje;

// TbServ1, the same in all windows.
extern const QStringView kServerInstructions;

// TbCli1.
QString ClientInstructions(const WindowTraits& window);

}  // namespace brontavia
