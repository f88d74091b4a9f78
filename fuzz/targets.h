// Everything that is fuzzed: each target takes any bytes and ends the process when something is broken.
#pragma once

#include <string_view>

namespace brontavia::fuzz {

// ---- A script (fuzz/script.h), played against the flow of a window ----

void FuzzThreeInRow(std::string_view script);
void FuzzNaval(std::string_view script);
void FuzzMiniStrategy(std::string_view script);
void FuzzStrategy(std::string_view script);
void FuzzChess(std::string_view script);

// ---- Texts ----

void FuzzPositionLine(std::string_view bytes);
void FuzzStandardFen(std::string_view bytes);
void FuzzLeadingNumber(std::string_view bytes);
void FuzzFleet(std::string_view bytes);
void FuzzArmy(std::string_view bytes);
// The whole content of Brontavia.ini.
void FuzzConfiguration(std::string_view bytes);

}  // namespace brontavia::fuzz
