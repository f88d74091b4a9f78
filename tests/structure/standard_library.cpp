#include <string>

std::u16string Text();
