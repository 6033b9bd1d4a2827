#include "spaces/NumberedName.h"

#include "support/Text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace roomlattice {
namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::string_view aroundTheNumber = "0123456789 #.-";

// What window managers call the desktops that nobody has named, in the languages of most of their users.
constexpr std::array<std::string_view, 44> words = {
    "desktop",
    "workspace",
    "Arbeitsfläche",
    "Arbeidsområde",
    "Arbejdsområde",
    "Arbetsyta",
    "Bureau",
    "Bureaublad",
    "Çalışma Alanı",
    "Çalışma alanı",
    "Masaüstü",
    "Ecrã",
    "Escritorio",
    "Escriptori",
    "Espace de travail",
    "Espacio de trabajo",
    "Espaço de trabalho",
    "Espaço de Trabalho",
    "Área de trabajo",
    "Área de trabalho",
    "Spazio di lavoro",
    "Werkblad",
    "Skrivbord",
    "Skrivebord",
    "Työpöytä",
    "Työtila",
    "Plocha",
    "Pracovní plocha",
    "Pulpit",
    "Obszar",
    "Obszar roboczy",
    "asztal",
    "munkaterület",
    "Рабочий стол",
    "Рабочее место",
    "Стільниця",
    "Робочий простір",
    "デスクトップ",
    "ワークスペース",
    "桌面",
    "工作区",
    "工作區",
    "바탕 화면",
    "작업 공간",
};

char lowerCase(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

/// Letters beyond ASCII have one case in the words as they are used.
bool isSameWord(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, lowerCase, lowerCase);
}

struct NumberPlace {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// The first number in the text; an empty place at its end where there is none.
NumberPlace numberIn(const std::string& text) {
  const std::size_t begin = std::min(text.find_first_of(digits), text.size());
  return {begin, std::min(text.find_first_not_of(digits, begin), text.size())};
}

}  // namespace

bool isNumberedName(const std::string& name) {
  const std::string text = trimWhitespace(name);
  if (text.empty()) {
    return true;
  }
  const NumberPlace number = numberIn(text);
  if (number.begin == number.end || text.find_first_of(digits, number.end) != std::string::npos) {
    return false;
  }
  const std::size_t first = text.find_first_not_of(aroundTheNumber);
  if (first == std::string::npos) {
    return true;
  }
  const std::string word = text.substr(first, text.find_last_not_of(aroundTheNumber) + 1 - first);
  return std::ranges::any_of(words, [&](std::string_view known) { return isSameWord(word, known); });
}

std::string numberedNameLike(const std::string& example, int number) {
  const NumberPlace place = numberIn(example);
  if (place.begin == place.end) {
    return "Desktop " + std::to_string(number);
  }
  return example.substr(0, place.begin) + std::to_string(number) + example.substr(place.end);
}

}  // namespace roomlattice
