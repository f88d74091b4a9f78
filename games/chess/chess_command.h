// The commands of the chess menus: what they are called, where they stand and when they can be used.
#pragma once

#include <QStringView>
#include <array>
#include <span>

namespace brontavia {

enum class ChessCommand {
  MnuArcAbr,
  MnuArcGua,
  MnuArcGuc,
  MnuOpcJaq,
  MnuOpcAba,
  MnuOpcSol,
  MnuOpcLib,
  MnuOpcPar,
  MnuOpcEti,
  MnuOpcVac,
  MnuOpcEst,
  MnuOpcApr,
  MnuOpcGir
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

inline constexpr std::array<ChessMenuEntry, 3> kFileMenu{{
    {ChessCommand::MnuArcAbr, u"MnuArcAbr", u"&Abrir Partida..."},
    {ChessCommand::MnuArcGua, u"MnuArcGua", u"&Guardar partida"},
    {ChessCommand::MnuArcGuc, u"MnuArcGuc", u"Guardar partida como... "},
}};

inline constexpr std::array<ChessMenuEntry, 10> kOptionsMenu{{
    {ChessCommand::MnuOpcJaq, u"MnuOpcJaq", u"&Jaque mate"},
    {ChessCommand::MnuOpcAba, u"MnuOpcAba", u"&Abandonar"},
    {ChessCommand::MnuOpcSol, u"MnuOpcSol", u"&Solicitar tablas"},
    {ChessCommand::MnuOpcApr, u"MnuOpcApr", u"&Modo aprendizaje", false, true},
    {ChessCommand::MnuOpcGir, u"MnuOpcGir", u"&Girar tablero", false, true},
    {ChessCommand::MnuOpcLib, u"MnuOpcLib", u"&Modo Libre", false, true},
    {ChessCommand::MnuOpcPar, u"MnuOpcPar", u"&Parar / encender relojes", true},
    {ChessCommand::MnuOpcEti, u"MnuOpcEti", u"&Establecer tiempos", true},
    {ChessCommand::MnuOpcVac, u"MnuOpcVac", u"&Vaciar tablero", true},
    {ChessCommand::MnuOpcEst, u"MnuOpcEst", u"&Establecer datos", true},
}};

inline constexpr std::array<ChessMenu, 2> kChessMenus{
    {{u"MnuArc", u"&Archivo", kFileMenu}, {u"MnuOpc", u"&Opciones", kOptionsMenu}}};

}  // namespace brontavia
