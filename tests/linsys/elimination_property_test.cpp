// Generated systems up to 6 x 6, with whole and fractional coefficients: ERO Assist reaches the
// reduced row echelon form that an independent exact elimination finds, in a bounded number of
// clicks; a unique solution satisfies every equation; an inconsistent or redundant system is read
// as such.
#include <gtest/gtest.h>

#include <cstdint>
#include <numeric>
#include <random>

#include "linsys/sys_eq_form.h"
#include "shell/main_flow.h"
#include "support/recording_frontend.h"

namespace tavimor {
namespace {

// The test's own exact rationals, on 128-bit whole numbers.
__extension__ typedef __int128 Whole;
Whole Gcd(Whole a, Whole b) {
  if (a < 0) a = -a;
  if (b < 0) b = -b;
  while (b != 0) {
    const Whole r = a % b;
    a = b;
    b = r;
  }
  return a;
}
struct Q {
  Whole n = 0;
  Whole d = 1;
};
Q Make(Whole n, Whole d) {
  if (d < 0) {
    n = -n;
    d = -d;
  }
  const Whole g = Gcd(n, d);
  return g > 1 ? Q{n / g, d / g} : Q{n, d};
}
std::string WholeText(Whole x) {
  if (x == 0) return "0";
  const bool negative = x < 0;
  std::string digits;
  for (Whole y = negative ? -x : x; y > 0; y /= 10)
    digits.insert(digits.begin(), char('0' + int(y % 10)));
  return (negative ? "-" : "") + digits;
}
Q Add(Q a, Q b) { return Make(a.n * b.d + b.n * a.d, a.d * b.d); }
Q Sub(Q a, Q b) { return Add(a, Q{-b.n, b.d}); }
Q Mul(Q a, Q b) { return Make(a.n * b.n, a.d * b.d); }
Q Div(Q a, Q b) { return Make(a.n * b.d, a.d * b.n); }
bool Zero(Q a) { return a.n == 0; }
std::string Text(Q a) { return WholeText(a.n) + (a.d == 1 ? "" : "/" + WholeText(a.d)); }

using Matrix = std::vector<std::vector<Q>>;

// Gauss-Jordan elimination of the augmented matrix over the coefficient columns.
Matrix Reduce(Matrix m, int& rank) {
  const int rows = static_cast<int>(m.size());
  const int cols = static_cast<int>(m[0].size());
  int r = 0;
  for (int c = 0; c + 1 < cols && r < rows; ++c) {
    int p = r;
    while (p < rows && Zero(m[p][c])) ++p;
    if (p == rows) continue;
    std::swap(m[p], m[r]);
    const Q pivot = m[r][c];
    for (Q& x : m[r]) x = Div(x, pivot);
    for (int i = 0; i < rows; ++i) {
      if (i == r || Zero(m[i][c])) continue;
      const Q a = m[i][c];
      for (int k = 0; k < cols; ++k) m[i][k] = Sub(m[i][k], Mul(a, m[r][k]));
    }
    ++r;
  }
  rank = r;
  return m;
}

struct Generated {
  Matrix m;
  SystemGrid g;
};

Generated Generate(std::mt19937& rng) {
  std::uniform_int_distribution<int> size(1, 6);
  std::uniform_int_distribution<int> whole(-6, 6);
  std::uniform_int_distribution<int> denominator(1, 4);
  std::uniform_int_distribution<int> kind(0, 9);
  const int rows = size(rng);
  const int vars = size(rng);
  Matrix m(static_cast<std::size_t>(rows), std::vector<Q>(static_cast<std::size_t>(vars) + 1));
  const bool fractions = kind(rng) < 5;
  for (auto& row : m) {
    for (Q& x : row) x = Make(whole(rng), fractions ? denominator(rng) : 1);
  }
  // Some rows repeat a combination of the first: a redundant row, or, with another constant, an
  // inconsistent one.
  for (int i = 1; i < rows; ++i) {
    const int what = kind(rng);
    if (what > 2) continue;
    const Q factor = Make(whole(rng), denominator(rng));
    for (int k = 0; k <= vars; ++k) {
      m[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)] =
          Mul(factor, m[0][static_cast<std::size_t>(k)]);
    }
    if (what == 0)
      m[static_cast<std::size_t>(i)].back() = Add(m[static_cast<std::size_t>(i)].back(), Q{1, 1});
  }
  Generated out;
  out.m = m;
  out.g.rows = static_cast<std::int16_t>(rows);
  out.g.cols = static_cast<std::int16_t>(vars + 1);
  for (int k = 0; k < vars; ++k) out.g.vars.push_back(static_cast<char>('a' + k));
  for (int i = 1; i <= rows; ++i) {
    for (int k = 1; k <= vars + 1; ++k) {
      const Q x = m[static_cast<std::size_t>(i - 1)][static_cast<std::size_t>(k - 1)];
      out.g.At(i, k) =
          GridNumber::Fraction(static_cast<std::int64_t>(x.n), static_cast<std::int64_t>(x.d));
    }
  }
  return out;
}

Q FromText(const std::string& text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string::npos) return Make(std::stoll(text), 1);
  return Make(std::stoll(text.substr(0, slash)), std::stoll(text.substr(slash + 1)));
}

TEST(EliminationProperty, AssistReachesTheReducedFormAndReadsItTruly) {
  std::mt19937 rng(20261122);
  int unique = 0;
  int infinite = 0;
  int none = 0;
  for (int trial = 0; trial < 300; ++trial) {
    RecordingFrontend frontend;
    Session s(frontend);
    StartUp(s, ".");
    const Generated gen = Generate(rng);
    SysEqState form;
    form.grid = gen.g;
    form.comments.assign(static_cast<std::size_t>(gen.g.rows), "");
    const int rows = gen.g.rows;
    const int vars = gen.g.cols - 1;
    // Each pivot column takes at most a swap, a scale and an addition for every other row; then
    // the click that finds the form, and the one that reads it.
    const int bound = std::min(rows, vars) * (rows + 1) + 2;
    // In every third trial the student mixes in EROs of their own between the clicks: the
    // assistant works from the grid alone, and the reduced form of a row-equivalent system is
    // the same.
    const bool student = trial % 3 == 0;
    std::uniform_int_distribution<int> any_row(1, rows);
    std::uniform_int_distribution<int> small(-4, 4);
    std::uniform_int_distribution<int> chance(0, 4);
    int own = 0;
    int clicks = 0;
    while (!form.closed && clicks <= bound) {
      if (student && own < 5 && !form.reduced && chance(rng) == 0) {
        const int i = any_row(rng);
        const int j = any_row(rng);
        const int c = small(rng);
        std::string text = "R" + std::to_string(i) + "*" + std::to_string(c == 0 ? 3 : c);
        if (i != j) {
          text = chance(rng) < 2 ? "R" + std::to_string(i) + ";R" + std::to_string(j)
                                 : "R" + std::to_string(i) + "+(" + std::to_string(c) + ")R" +
                                       std::to_string(j);
        }
        if (c != 0 || i == j) {
          ASSERT_TRUE(EnterKeyboardEro(s, form, text)) << text;
          cmdOK(s, form);
          ++own;
          clicks = 0;  // the count starts again from the student's grid
          continue;
        }
      }
      cmdAssistElim(s, form);
      ++clicks;
    }
    int rank = 0;
    const Matrix reduced = Reduce(gen.m, rank);
    // The coefficients match the independent elimination entry for entry, and so do the
    // constants of a consistent system. The assistant pivots on the coefficients only, so the
    // constants of an inconsistent one depend on the way there: only whether a zero row has a
    // constant that is not 0 must agree.
    bool zero_row_constant = false;
    bool reference_zero_row_constant = false;
    std::vector<bool> pivot_rows;
    for (int i = 1; i <= rows; ++i) {
      const auto& want = reduced[static_cast<std::size_t>(i - 1)];
      bool pivot_row = false;
      for (int k = 1; k <= vars; ++k) {
        pivot_row = pivot_row || !Zero(want[static_cast<std::size_t>(k - 1)]);
      }
      pivot_rows.push_back(pivot_row);
      if (!pivot_row) {
        zero_row_constant = zero_row_constant || !form.grid.At(i, vars + 1).IsZero();
        reference_zero_row_constant = reference_zero_row_constant || !Zero(want.back());
      }
    }
    EXPECT_EQ(zero_row_constant, reference_zero_row_constant) << "trial " << trial;
    for (int i = 1; i <= rows; ++i) {
      const auto& want = reduced[static_cast<std::size_t>(i - 1)];
      const bool compare_constant =
          !reference_zero_row_constant && pivot_rows[static_cast<std::size_t>(i - 1)];
      for (int k = 1; k <= vars + 1; ++k) {
        const GridNumber& cell = form.grid.At(i, k);
        ASSERT_TRUE(cell.Exact()) << "trial " << trial;
        if (k <= vars || compare_constant) {
          EXPECT_EQ(cell.Text(s), Text(want[static_cast<std::size_t>(k - 1)]))
              << "trial " << trial << " at " << i << ", " << k;
        }
      }
    }
    // The truth of the reading, from the independent elimination.
    bool inconsistent = false;
    for (const auto& row : reduced) {
      bool zero = true;
      for (int k = 0; k < vars; ++k) zero = zero && Zero(row[static_cast<std::size_t>(k)]);
      inconsistent = inconsistent || (zero && !Zero(row.back()));
    }
    const std::string text = frontend.Transcript();
    if (inconsistent) {
      ++none;
      EXPECT_EQ(form.reading.kind, SystemKind::None) << "trial " << trial;
      EXPECT_NE(text.find("is inconsistent and has no solution"), std::string::npos);
    } else if (rank == vars) {
      ++unique;
      ASSERT_EQ(form.reading.kind, SystemKind::Unique) << "trial " << trial;
      ASSERT_EQ(static_cast<int>(form.reading.solution.size()), vars);
      // The solution satisfies every equation as generated.
      std::vector<Q> value(static_cast<std::size_t>(vars));
      for (const auto& [letter, v] : form.reading.solution) {
        value[static_cast<std::size_t>(letter - 'a')] = FromText(v);
      }
      for (const auto& row : gen.m) {
        Q sum;
        for (int k = 0; k < vars; ++k) {
          sum = Add(sum, Mul(row[static_cast<std::size_t>(k)], value[static_cast<std::size_t>(k)]));
        }
        EXPECT_EQ(Text(sum), Text(row.back())) << "trial " << trial;
      }
    } else {
      ++infinite;
      EXPECT_EQ(form.reading.kind, SystemKind::Infinite) << "trial " << trial;
      EXPECT_EQ(static_cast<int>(form.reading.free_vars.size()), vars - rank);
      EXPECT_NE(text.find("has an infinite number of solutions"), std::string::npos);
    }
    // Fewer pivots than equations, with no contradiction: the redundancy is told.
    if (!inconsistent && rank < rows) {
      EXPECT_NE(text.find("that the system of equations is redundant."), std::string::npos)
          << "trial " << trial;
    }
  }
  // Every kind of system came up.
  EXPECT_GT(unique, 20);
  EXPECT_GT(infinite, 20);
  EXPECT_GT(none, 20);
}

}  // namespace
}  // namespace tavimor
