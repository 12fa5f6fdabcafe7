// The three elementary row operations on the system grid, their texts, and the keyboard syntax.
#include "linsys/row_operations.h"

#include <cmath>
#include <vector>

#include "core/scoped_override.h"
#include "simplify/simplify_driver.h"

namespace tavimor {

namespace {

constexpr double kSnap = 1e-10;

// "3", or "(-3)" for a negative factor; a fraction is bracketed too: "R2 / (1/2)".
std::string FactorText(const Session& s, const GridNumber& c) {
  const std::string text = c.Text(s);
  return c.Negative() || text.find('/') != std::string::npos ? "(" + text + ")" : text;
}

// The tokens of the keyboard syntax.
struct Token {
  char type = 0;  // 'R' row, 'N' number, or the operator itself: * / + - ;
  int row = 0;
  GridNumber number;
};

bool ScanNumber(Session& s, const std::string& text, std::size_t& at, GridNumber& value) {
  const std::size_t start = at;
  if (text[at] == '(') {
    int depth = 0;
    std::size_t end = at;
    for (; end < text.size(); ++end) {
      if (text[end] == '(') ++depth;
      if (text[end] == ')' && --depth == 0) break;
    }
    if (end >= text.size()) return false;
    const std::string inner = text.substr(at + 1, end - at - 1);
    at = end + 1;
    if (inner.empty()) return false;
    try {
      ScopedOverride silent(s.DetailNow, std::int16_t{0});
      ScopedOverride exact(s.ExactToFloat, false);
      return GridNumber::FromText(s, SimplifyText(s, inner), value);
    } catch (const std::exception&) {
      return false;
    }
  }
  if (text[at] == '-' || text[at] == '+') ++at;
  const std::size_t digits = at;
  while (at < text.size() && (std::isdigit(static_cast<unsigned char>(text[at])) != 0 ||
                              text[at] == '.' || text[at] == ',')) {
    ++at;
  }
  if (at == digits) return false;
  if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
    std::size_t exp = at + 1;
    if (exp < text.size() && (text[exp] == '-' || text[exp] == '+')) ++exp;
    if (exp < text.size() && std::isdigit(static_cast<unsigned char>(text[exp])) != 0) {
      at = exp;
      while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0) ++at;
    }
  }
  return GridNumber::FromText(s, text.substr(start, at - start), value);
}

bool Tokenise(Session& s, const std::string& text, std::vector<Token>& tokens) {
  std::size_t at = 0;
  while (at < text.size()) {
    const char c = text[at];
    Token token;
    const bool number_place = tokens.empty() || tokens.back().type != 'R';
    if (c == 'R') {
      ++at;
      const std::size_t digits = at;
      while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0) ++at;
      if (at == digits || at - digits > 4) return false;
      token.type = 'R';
      token.row = std::stoi(text.substr(digits, at - digits));
    } else if (std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '.' || c == '(' ||
               ((c == '-' || c == '+') && number_place && !tokens.empty() &&
                (tokens.back().type == '*' || tokens.back().type == '/')) ||
               ((c == '-' || c == '+') && tokens.empty())) {
      token.type = 'N';
      if (!ScanNumber(s, text, at, token.number)) return false;
    } else if (c == '*' || c == '/' || c == '+' || c == '-' || c == ';') {
      token.type = c;
      ++at;
    } else {
      return false;
    }
    tokens.push_back(token);
  }
  return true;
}

// Whether the token types read as the pattern; "N?" optional '*' is handled by the caller.
bool Shape(const std::vector<Token>& tokens, const std::string& pattern) {
  if (tokens.size() != pattern.size()) return false;
  for (std::size_t k = 0; k < tokens.size(); ++k) {
    const char want = pattern[k];
    const char got = tokens[k].type;
    if (want == '~' ? got != '+' && got != '-' : got != want) return false;
  }
  return true;
}

}  // namespace

void ApplyEro(SystemGrid& g, const Ero& e) {
  for (int column = 1; column <= g.cols; ++column) {
    GridNumber& cell = g.At(e.row, column);
    switch (e.kind) {
      case 1:
        cell = e.second ? cell / e.factor : cell * e.factor;
        if (!cell.Exact() && std::fabs(cell.Value() - 1.0) < kSnap) cell = GridNumber(1);
        break;
      case 2: {
        const GridNumber step = e.factor * g.At(e.row2, column);
        cell = e.second ? cell - step : cell + step;
        if (!cell.Exact() && std::fabs(cell.Value()) < kSnap) cell = GridNumber(0);
        break;
      }
      case 3: std::swap(cell, g.At(e.row2, column)); break;
      default: break;
    }
  }
}

std::string CommentArrow() { return std::string(9, ' ') + "\xe2\x86\x90"; }

std::string EroComment(const Session& s, const Ero& e) {
  const std::string r = "R" + std::to_string(e.row);
  switch (e.kind) {
    case 1: return r + (e.second ? " / " : " * ") + FactorText(s, e.factor);
    case 2:
      return r + (e.second ? " - " : " + ") + FactorText(s, e.factor) + " * R" +
             std::to_string(e.row2);
    default: return "";
  }
}

std::string EroStepText(const Session& s, const Ero& e) {
  const std::string r = "R" + std::to_string(e.row);
  switch (e.kind) {
    case 1:
    case 2:
      return "Apply ERO # " + std::to_string(e.kind) + ", replacing " + r + " \xe2\x86\x92 " +
             EroComment(s, e);
    case 3: return "Apply ERO # 3, swapping " + r + " and R" + std::to_string(e.row2);
    default: return "";
  }
}

GridNumber SnapToShownCoefficient(const Session& s, const SystemGrid& g, int row, int figures,
                                  const GridNumber& typed) {
  if (row < 1 || row > g.rows) return typed;
  const std::string shown = typed.SigFigsText(s, figures);
  for (int column = 1; column <= g.cols; ++column) {
    const GridNumber& c = g.At(row, column);
    if (c.IsZero() || c.SigFigsText(s, figures) != shown) continue;
    const GridNumber size = c.Negative() ? -c : c;
    return typed.Negative() ? -size : size;
  }
  return typed;
}

bool ParseEROText(Session& s, const std::string& text, const SystemGrid& g, int figures, Ero& e) {
  std::string bare;
  for (const char c : text) {
    if (c != ' ' && c != '\t') bare += c;
  }
  std::vector<Token> tokens;
  if (bare.empty() || !Tokenise(s, bare, tokens)) return false;
  for (const Token& token : tokens) {
    if (token.type == 'R' && (token.row < 1 || token.row > g.rows)) return false;
    if (token.type == 'N' && token.number.IsZero()) return false;
  }
  // "3R1" and "R1+3R2": a number right before a row multiplies it.
  std::vector<Token> full;
  for (const Token& token : tokens) {
    if (token.type == 'R' && !full.empty() && full.back().type == 'N') {
      Token times;
      times.type = '*';
      full.push_back(times);
    }
    full.push_back(token);
  }
  Ero out;
  bool typed = true;
  if (Shape(full, "R*N") || Shape(full, "R/N")) {
    out = {1, static_cast<std::int16_t>(full[0].row), 0, full[1].type == '/', full[2].number};
  } else if (Shape(full, "N*R")) {
    out = {1, static_cast<std::int16_t>(full[2].row), 0, false, full[0].number};
  } else if (Shape(full, "R~R")) {
    out = {2, static_cast<std::int16_t>(full[0].row), static_cast<std::int16_t>(full[2].row),
           full[1].type == '-', GridNumber(1)};
    typed = false;
  } else if (Shape(full, "R~R*N") || Shape(full, "R~R/N")) {
    const GridNumber n = SnapToShownCoefficient(s, g, full[0].row, figures, full[4].number);
    out = {2, static_cast<std::int16_t>(full[0].row), static_cast<std::int16_t>(full[2].row),
           full[1].type == '-', full[3].type == '/' ? GridNumber(1) / n : n};
    e = out;
    return out.row != out.row2;
  } else if (Shape(full, "R~N*R")) {
    out = {2, static_cast<std::int16_t>(full[0].row), static_cast<std::int16_t>(full[4].row),
           full[1].type == '-', full[2].number};
  } else if (Shape(full, "R;R")) {
    out = {3, static_cast<std::int16_t>(full[0].row), static_cast<std::int16_t>(full[2].row), false,
           GridNumber(1)};
    typed = false;
  } else {
    return false;
  }
  if (out.kind != 1 && out.row == out.row2) return false;
  if (typed) out.factor = SnapToShownCoefficient(s, g, out.row, figures, out.factor);
  e = out;
  return true;
}

}  // namespace tavimor
