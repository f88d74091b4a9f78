#include "fuzz/script.h"

namespace brontavia::fuzz {

std::optional<Step> Script::Next() {
  const auto begin = rest_.find_first_not_of('\n');
  if (begin == std::string_view::npos) return std::nullopt;
  rest_.remove_prefix(begin);
  const std::string_view line = rest_.substr(0, rest_.find('\n'));
  rest_.remove_prefix(line.size());
  Step step{.What = line.front()};
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == '\\' && i + 1 < line.size()) {
      ++i;
      step.Text += line[i] == 'n' ? '\n' : line[i];
    } else {
      step.Text += line[i];
    }
  }
  return step;
}

std::string LineOf(const Step& step) {
  std::string line(1, step.What);
  for (const char c : step.Text) {
    if (c == '\n') {
      line += "\\n";
    } else if (c == '\\') {
      line += "\\\\";
    } else {
      line += c;
    }
  }
  return line + '\n';
}

}  // namespace brontavia::fuzz
