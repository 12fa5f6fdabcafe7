// The options by the keys and text forms they have in the settings store's "Parameters" section.
#include "shell/option_keys.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <optional>
#include <variant>

#include "core/number_format.h"
#include "core/pieces.h"

namespace tavimor {

namespace {

enum class Form { Flag, Integer, Number, Letter, GraphSettings };

using Member = std::variant<bool Session::*, std::int16_t Session::*, float Session::*,
                            std::string Session::*>;

struct OptionKey {
  const char* key;
  Form form;
  Member member;
  int low;  // range of an integer or a number, as the options dialog offers it
  int high;
};

// Key, its text form, the state it sets, and the range the options dialog offers.
constexpr std::array<OptionKey, 21> kTable{{
    {"Unknown", Form::Letter, &Session::Unknown, 0, 0},
    {"Special E", Form::Flag, &Session::SpecialE, 0, 0},
    {"Special P", Form::Flag, &Session::SpecialP, 0, 0},
    {"Special D", Form::Flag, &Session::SpecialD, 0, 0},
    {"Degrees", Form::Flag, &Session::Degrees, 0, 0},
    {"Complex form", Form::Integer, &Session::ComplexForm, 0, 3},
    {"Solve detail", Form::Integer, &Session::SolveDetailDefault, 0, 2},
    {"Streaming output", Form::Flag, &Session::StreamingOutput, 0, 0},
    {"Font size", Form::Number, &Session::FontSize, 6, 72},
    {"Sig figs", Form::Integer, &Session::SigFigs, 1, 8},
    {"Exponent to radical", Form::Flag, &Session::ExponentToRadical, 0, 0},
    {"Exponent to reciprocal", Form::Flag, &Session::ExponentToReciprocal, 0, 0},
    {"Exponent to exponential function", Form::Flag, &Session::ExponentToExponentialFunction, 0, 0},
    {"Exact to float", Form::Flag, &Session::ExactToFloat, 0, 0},
    {"IniSplashScreen", Form::Flag, &Session::ShowWelcomeScreen, 0, 0},
    {"Form width", Form::Number, &Session::FormWidth, 1, 1000000},
    {"Form height", Form::Number, &Session::FormHeight, 1, 1000000},
    {"Form windowstate", Form::Integer, &Session::FormWindowState, 0, 2},
    {"Evaluate inverse trig operations", Form::Integer, &Session::EvaluateInverseTrig, 0, 3},
    {"Quadratic method", Form::Integer, &Session::QuadraticMethod, 0, 3},
    {"GraphParms", Form::GraphSettings, &Session::GraphParms, 0, 0},
}};

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

const OptionKey* Find(const std::string& key) {
  const std::string wanted = Lower(key);
  for (const OptionKey& entry : kTable) {
    if (Lower(entry.key) == wanted) return &entry;
  }
  return nullptr;
}

std::optional<long> ReadInteger(const std::string& text) {
  long value = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
  return value;
}

std::string FormatNumber(float value) {
  return GeneralNumberFormat(static_cast<double>(value), '.');
}

}  // namespace

std::vector<std::string> OptionKeys() {
  std::vector<std::string> keys;
  for (const OptionKey& entry : kTable) keys.emplace_back(entry.key);
  return keys;
}

std::string OptionText(const Session& s, const std::string& key) {
  const OptionKey* entry = Find(key);
  if (entry == nullptr) return "";
  return std::visit(
      [&](auto member) -> std::string {
        const auto& value = s.*member;
        using T = std::decay_t<decltype(value)>;
        if constexpr (std::is_same_v<T, bool>) {
          return value ? "True" : "False";
        } else if constexpr (std::is_same_v<T, std::int16_t>) {
          return std::to_string(value);
        } else if constexpr (std::is_same_v<T, float>) {
          return FormatNumber(value);
        } else {
          return value;
        }
      },
      entry->member);
}

bool SetOptionFromText(Session& s, const std::string& key, const std::string& value, bool strict,
                       std::string& error) {
  const OptionKey* entry = Find(key);
  if (entry == nullptr) {
    error = "There is no option \"" + key + "\".";
    return false;
  }
  const std::string name = entry->key;
  auto refuse = [&](const std::string& what) {
    error = "The option \"" + name + "\" takes " + what + ", not \"" + value + "\".";
    return false;
  };
  switch (entry->form) {
    case Form::Flag: {
      bool flag = value == "True";
      if (strict) {
        const std::string lower = Lower(value);
        if (lower != "true" && lower != "false") return refuse("True or False");
        flag = lower == "true";
      }
      s.*std::get<bool Session::*>(entry->member) = flag;
      break;
    }
    case Form::Integer: {
      const std::optional<long> number = ReadInteger(value);
      if (!number || *number < entry->low || *number > entry->high) {
        if (!strict) return true;
        return refuse("a whole number from " + std::to_string(entry->low) + " to " +
                      std::to_string(entry->high));
      }
      s.*std::get<std::int16_t Session::*>(entry->member) = static_cast<std::int16_t>(*number);
      break;
    }
    case Form::Number: {
      const std::optional<double> number = ParseNumberText(value, '.');
      if (!number || *number < entry->low || *number > entry->high) {
        if (!strict) return true;
        return refuse("a number from " + std::to_string(entry->low) + " to " +
                      std::to_string(entry->high));
      }
      s.*std::get<float Session::*>(entry->member) = static_cast<float>(*number);
      break;
    }
    case Form::Letter: {
      const bool letter = value.size() == 1 && std::isalpha(static_cast<unsigned char>(value[0]));
      if (!letter) {
        if (!strict) return true;
        return refuse("one letter, a to z or A to Z");
      }
      s.Unknown = value;
      break;
    }
    case Form::GraphSettings: {
      if (CountPieces(value, ";") != 26) {
        if (!strict) return true;
        return refuse("26 numbers separated by \";\"");
      }
      s.GraphParms = value;
      break;
    }
  }
  if (entry->member == Member(&Session::SolveDetailDefault)) s.SolveDetail = s.SolveDetailDefault;
  return true;
}

}  // namespace tavimor
