// The commands of the chess menus: what they are called, where they stand and when they can be used.
#pragma once

#include <QStringView>
#include <array>
#include <span>

namespace brontavia {

enum class ChessCommand {
  OpenGame,
  Save,
  SaveAs,
  DeclareMate,
  Resign,
  OfferDraw,
  LearningMode,
  TurnBoard,
  FreeMode,
  ToggleClocks,
  SetClocks,
  EmptyBoard,
  SetData
};

struct ChessMenuEntry {
  ChessCommand Command{};
  QStringView Name;  // of the control
  QStringView Caption;
  bool FreeModeOnly = false;
  bool Checkable = false;
};

struct ChessMenu {
  QStringView Name;
  QStringView Caption;
  std::span<const ChessMenuEntry> Entries;
};

inline constexpr std::array kFileMenu{
    ChessMenuEntry{ChessCommand::OpenGame, u"MnuArcAbr", u"&Abrir Partida..."},
    ChessMenuEntry{ChessCommand::Save, u"MnuArcGua", u"&Guardar partida"},
    ChessMenuEntry{ChessCommand::SaveAs, u"MnuArcGuc", u"Guardar partida como... "},
};

inline constexpr std::array kOptionsMenu{
    ChessMenuEntry{ChessCommand::DeclareMate, u"MnuOpcJaq", u"&Jaque mate"},
    ChessMenuEntry{ChessCommand::Resign, u"MnuOpcAba", u"&Abandonar"},
    ChessMenuEntry{ChessCommand::OfferDraw, u"MnuOpcSol", u"&Solicitar tablas"},
    ChessMenuEntry{ChessCommand::LearningMode, u"MnuOpcApr", u"&Modo aprendizaje", false, true},
    ChessMenuEntry{ChessCommand::TurnBoard, u"MnuOpcGir", u"&Girar tablero", false, true},
    ChessMenuEntry{ChessCommand::FreeMode, u"MnuOpcLib", u"&Modo Libre", false, true},
    ChessMenuEntry{ChessCommand::ToggleClocks, u"MnuOpcPar", u"&Parar / encender relojes", true},
    ChessMenuEntry{ChessCommand::SetClocks, u"MnuOpcEti", u"&Establecer tiempos", true},
    ChessMenuEntry{ChessCommand::EmptyBoard, u"MnuOpcVac", u"&Vaciar tablero", true},
    ChessMenuEntry{ChessCommand::SetData, u"MnuOpcEst", u"&Establecer datos", true},
};

inline constexpr std::array kChessMenus{
    ChessMenu{u"MnuArc", u"&Archivo", kFileMenu},
    ChessMenu{u"MnuOpc", u"&Opciones", kOptionsMenu},
};

}  // namespace brontavia
