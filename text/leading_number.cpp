#include "text/leading_number.h"

#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>

namespace brontavia {
namespace {

// Walks a text and never shows the characters that the rule skips.
class Scanner {
 public:
  explicit Scanner(std::u16string_view text) : rest_(text) { SkipBlanks(); }

  [[nodiscard]] char16_t Peek() const { return rest_.empty() ? u'\0' : rest_.front(); }

  void Advance() {
    rest_.remove_prefix(1);
    SkipBlanks();
  }

  bool Take(char16_t wanted) {
    if (rest_.empty() || rest_.front() != wanted) return false;
    Advance();
    return true;
  }

 private:
  void SkipBlanks() {
    const auto first = rest_.find_first_not_of(u" \t\n");
    rest_.remove_prefix(first == std::u16string_view::npos ? rest_.size() : first);
  }

  std::u16string_view rest_;
};

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

std::optional<int> DigitOf(char16_t c, int base) {
  int value = -1;
  if (IsDigit(c)) value = c - u'0';
  if (c >= u'a' && c <= u'f') value = c - u'a' + 10;
  if (c >= u'A' && c <= u'F') value = c - u'A' + 10;
  if (value < 0 || value >= base) return std::nullopt;
  return value;
}

double WholeNumber(Scanner& scanner, int base) {
  double value = 0;
  while (const auto digit = DigitOf(scanner.Peek(), base)) {
    value = value * base + *digit;
    scanner.Advance();
  }
  return value;
}

void CopyDigits(Scanner& scanner, std::string& number) {
  for (; IsDigit(scanner.Peek()); scanner.Advance()) number += static_cast<char>(scanner.Peek());
}

// The digits of an exponent with their sign, or nothing when no digit follows.
std::string Exponent(Scanner scanner) {
  if (!scanner.Take(u'e') && !scanner.Take(u'E')) return {};
  std::string exponent = "e";
  if (scanner.Take(u'-')) {
    exponent += '-';
  } else {
    scanner.Take(u'+');
  }
  if (!IsDigit(scanner.Peek())) return {};
  CopyDigits(scanner, exponent);
  return exponent;
}

}  // namespace

double Val(std::u16string_view text) {
  Scanner scanner(text);
  if (scanner.Take(u'&')) {
    if (scanner.Take(u'h') || scanner.Take(u'H')) return WholeNumber(scanner, 16);
    if (scanner.Take(u'o') || scanner.Take(u'O')) return WholeNumber(scanner, 8);
    return 0;
  }
  std::string number;
  if (scanner.Take(u'-')) {
    number += '-';
  } else {
    scanner.Take(u'+');
  }
  number += '0';  // so that ".5" and a lone sign are numbers to strtod
  CopyDigits(scanner, number);
  if (scanner.Take(u'.')) {
    number += std::localeconv()->decimal_point;  // strtod knows no other; with a display it is the user's own
    CopyDigits(scanner, number);
  }
  number += Exponent(scanner);
  return std::strtod(number.c_str(), nullptr);
}

}  // namespace brontavia
