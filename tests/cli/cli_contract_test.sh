#!/usr/bin/env bash
# The terminal tutor as a program: output, standard error and exit status of every form of use.
set -u
cli="$1"
failures=0
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

check() {  # name, expected status, expected stdout, expected stderr, args...
  local name="$1" want_status="$2" want_out="$3" want_err="$4"
  shift 4
  local out err status
  out=$("$cli" "$@" 2>"$work/err" </dev/null)
  status=$?
  err=$(cat "$work/err")
  if [ "$status" != "$want_status" ] || [ "$out" != "$want_out" ] || [ "$err" != "$want_err" ]; then
    echo "FAIL: $name"
    echo "  status $status (wanted $want_status)"
    printf '  stdout:\n%s\n  wanted:\n%s\n' "$out" "$want_out"
    printf '  stderr:\n%s\n  wanted:\n%s\n' "$err" "$want_err"
    failures=$((failures + 1))
  else
    echo "ok: $name"
  fi
}

contains() {  # name, text, part...
  local name="$1" text="$2"
  shift 2
  for part in "$@"; do
    case "$text" in
      *"$part"*) ;;
      *) echo "FAIL: $name: no \"$part\" in:"; echo "$text"; failures=$((failures + 1)); return ;;
    esac
  done
  echo "ok: $name"
}

# The tree command.
check "tree of an accepted item" 0 "¶¶     2*x+3
  +¶     2*x
    NN     2
    NV     x
  +N     3" "" tree "2x+3"
check "tree of an equation" 0 "¶V     x
=
¶N     7" "" tree "x=7"
check "tree of a refused item: the message alone on standard error" 2 "" \
  "Error in input string.  Invalid symbol + at end of expression." tree "2x+"
check "tree with the decimal comma" 0 "¶N     1,5" "" --decimal-comma tree "1,50"
check "tree with an option set" 0 "¶V     p" "" --set "Special P=True" tree "p"

# Help pages as text, from a copy of the program beside a help topic map and pages of its own.
mkdir -p "$work/app/help/algebra" "$work/app/help/program"
cp "$cli" "$work/app/tavimor-cli"
printf '%s\n' "' the map of these checks" "[the help systems]" "program help << 0" \
  "algebra help << 500" "[root directory of each help system]" \
  "program help = \"<app dir>/help/program\"" "algebra help = <app dir>/help/algebra" \
  "[algebra help]" "7	<< 7.html" "61 << 61.html" "62 << 62.html" > "$work/app/Help topic locations.txt"
printf '%s\n' '<h1>Power of a power</h1>' '<p>Exponents multiply: @(x^2)^3@ becomes @x^6@.</p>' \
  '<h2>Example</h2>' '<ul><li>@(y^3)^2=y^6@</li><li>see <a href="7.html">Seven</a></li></ul>' \
  > "$work/app/help/algebra/61.html"
printf '%s\n' '<h1>Seven</h1><p>@2x@</p>' > "$work/app/help/algebra/7.html"
printf '%s\n' '<h1>Using the tutor</h1><p>Type an item.</p>' > "$work/app/help/program/index.html"
helpcli="$work/app/tavimor-cli"
check_help() {  # as check, with the copy of the program
  local saved="$cli"
  cli="$helpcli"
  check "$@"
  cli="$saved"
}
check_help "help N prints the page as text" 0 "POWER OF A POWER
================

Exponents multiply: (x^2)^3 becomes x^6.

Example
-------

  * (y^3)^2=y^6
  * see Seven (see 7)" "" help 61
check_help "help alone lists the pages by number and title" 0 "    7  Seven
   61  Power of a power" "" help
check_help "help program prints the program's page" 0 "USING THE TUTOR
===============

Type an item." "" help program
check_help "help of a number without a page file" 2 "" "There is no help page for topic 62." help 62
check_help "help of a number no system holds" 2 "" "There is no help page for topic 8." help 8
check_help "help number 0 opens nothing" 2 "" "There is no help page for topic 0." help 0
check_help "help of a word that is no number" 64 "" \
  "help takes the number of a help topic, \"index\" or \"program\"." help sixty
out=$(printf 'x^2\nhelp 61\nhelp index\nquit\n' | "$helpcli" 2>&1)
contains "the tutor's help N and help index" "$out" "POWER OF A POWER" "(see 7)" "   61  Power of a power"
out=$(printf '(x^2)^3\nsimplify\nhelp step\nquit\n' | "$helpcli" --set "Streaming output=False" 2>&1)
contains "the tutor's help step shows the page of the last step" "$out" "POWER OF A POWER"
out=$(printf 'x+2*y\ntree\nquit\n' | "$cli" 2>&1)
tree=$("$cli" tree "x+2*y")
contains "the tutor's tree word prints the tree as the tree command does" "$out" "$tree"
json=$("$cli" --json "x+1" tree 2>/dev/null)
contains "the tree word in a one-shot run is the dialog's lines" "$json" \
  '"dialog": ["¶¶     x+1", "  +V     x", "  +N     1"]' '"help": 397'

# Loading an item and running commands.
check "an equation is considered and drawn" 0 "Consider  the equation  2x + 3 = 7" "" "2x+3=7"
check "a fraction is set in two dimensions" 0 "                         3
Consider  the fraction  ───
                         4" "" "3/4"
check "evaluate with the values given" 0 "Consider  the expression  x² + y
With x = 3; y = -1 the expression evaluates to 8 ." "" --values "x=3; y=-1" "x^2+y" evaluate
check "evaluate without a value is a usage mistake" 64 "Consider  the expression  x + 1" \
  "tavimor-cli: evaluate needs a value for x: give --values \"x=...\"." "x+1" evaluate
check "a value with letters ends the run with the check's message" 64 "Consider  the expression  x + 1" \
  "The value of x must be a number or an expression of numbers." --values "x=hello" "x+1" evaluate
check "a value the input check refuses ends the run" 64 "Consider  the expression  x + 1" \
  "Error in input string.  The character  #  is not allowed." --values "x=2#" "x+1" evaluate
check "a value of numbers is taken" 0 "Consider  the expression  x + 1
With x = 1/2 the expression evaluates to 1.5 ." "" --values "x=1/2" "x+1" evaluate
check "a bad --values is a usage mistake" 64 "" "tavimor-cli: --values needs a LIST such as \"x=2; y=3\".
Try 'tavimor-cli --help'." --values "x 3" "x+1" evaluate
check "a side of an equation and back" 0 "Consider  the equation  x = 1" "" "x=1" left equation
check "a refused item exits 2 with its message" 2 "" \
  "Error in input string.  Unmatched brackets." "(x]"
check "an empty item is refused" 2 "" "Nothing to load: the item is empty." "   "
check "an unknown command exits 3" 3 "" \
  "Unknown command \"frobnicate\". 'tavimor-cli --help' lists the commands." "x" frobnicate
check "a command whose button is on another panel exits 3" 3 "" \
  "The command \"left\" is not on offer now: its button is on the Equation panel." "x" left
check "combine-logs makes one logarithm" 0 "Consider  the expression  ln(a) + ln(b)
Make ln(a) + ln(b) into one logarithm by:
   - using property 1 of logarithms to convert ln(a) + ln(b)  →  ln(ab) .

   - The result is:

    ln(ab)

There are no logarithms that can be combined." "" "ln(a)+ln(b)" combine-logs
check "combine-logs with one logarithm is not on offer" 3 "" \
  "The command \"combine-logs\" is not on offer now." "ln(x)" combine-logs
out=$("$cli" --json "ln(x)*ln(y)+2*3" combine-logs 2>/dev/null)
contains "combine-logs tells in a note what Simplify would do instead" "$out" \
  '"left": "ln(x)*ln(y)+2*3"' "There are no logarithms that can be combined." \
  "@ln(x)*ln(y)+2*3->ln(x)*ln(y)+6@"
check "break-trig without a trig function is not on offer" 3 "" \
  "The command \"break-trig\" is not on offer now." "x+1" break-trig
out=$("$cli" --json "3*sin(x)+4*cos(x)" combine-trig 2>/dev/null)
contains "combine-trig makes a sine with a phase angle" "$out" \
  '"left": "5*sin(arctan(4/3)+x)"' "Combine the sin and the cos into a sin with a phase angle."
out=$("$cli" --json "sin(-x)*2*3" break-trig 2>/dev/null)
contains "break-trig tells in a note what Simplify would do instead" "$out" \
  '"left": "sin(-x)*2*3"' "There are no trig functions to break apart." "@sin(-x)*2*3->-6*sin(x)@"
check "simplify shows its steps in a stream" 0 "Consider  the expression  x + x
Simplify the sum x + x by:
   - combining like terms x + x  →  2x .
   - The result is:

    2x

There is nothing to simplify." "" "x+x" simplify

check "expand shows its steps in a stream" 0 "Consider  the expression  (x + 1)(x + 2)
Expand as x(x + 2) + (x + 2) ,

. . . and simplify.

    x + x(x + 2) + 2

Expand as x + xx + x·2 + 2 ,

. . . and simplify.

    x² + 3x + 2

There is nothing to expand." "" "(x+1)(x+2)" expand
check "expand with nothing to expand tells the simplification in a hint" 0 \
  "Consider  the expression  x + x
Hint:
Note:  The expression can be simplified like this:

x + x  →  2x

There is nothing to expand." "" "x+x" expand
check "expand with the result only on the right side" 0 "Consider  the equation  y = 3(x − 2)
Expanding on the right side of the equation yields

    y = 3x − 6" "" --set "Solve detail=0" "y=3(x-2)" right expand

check "a control character is shown, never sent to the terminal" 2 "" \
  "Error in input string.  The character  ^[  is not allowed." "$(printf 'x\033')"

# Mistakes on the command line.
check "a bad option value is a usage mistake" 64 "" \
  "tavimor-cli: The option \"Complex form\" takes a whole number from 0 to 3, not \"9\".
Try 'tavimor-cli --help'." --set "Complex form=9" "x"
check "an unknown option is a usage mistake" 64 "" "tavimor-cli: unknown option --frob.
Try 'tavimor-cli --help'." --frob x
check "a batch file that cannot be read" 64 "" "tavimor-cli: cannot read the batch file \"$work/none\".
Try 'tavimor-cli --help'." --batch "$work/none"

# JSON.
json=$("$cli" --json "2x+3=7" left 2>/dev/null)
contains "json of an equation on its left side" "$json" '"kind": "equation"' '"panel": "Left Side"' \
  '"left": "2*x+3"' '"right": "7"' '"transcript": "\nConsider  the equation  @2*x+3=7@  \n"' \
  '"help": 0' '"status": ["show steps in a stream ", "real arithmetic only "' '"messages": []' \
  '"error": null'
json=$("$cli" --json "2x+" 2>/dev/null)
status=$?
contains "json of a refused item" "$json" '"kind": null' \
  '"error": "Error in input string.  Invalid symbol + at end of expression."'
[ "$status" = 2 ] && echo "ok: json of a refused item exits 2" || { echo "FAIL: json refused status $status"; failures=$((failures + 1)); }
json=$("$cli" --json --set "Streaming output=False" --set "Solve detail=0" "x" 2>/dev/null)
contains "json shows the options in the status panels" "$json" '"status": ["show result only "'

json=$("$cli" --json "y=1/(x*(x+1))" right expand-denominators 2>/dev/null)
contains "json of expand-denominators on the right side" "$json" '"panel": "Right Side"' \
  '"left": "y"' '"right": "1/(x^2+x)"' 'Expand as @1/(x*x+x)@ ,' '"help": 76' '"hints": []' \
  '"error": null'
json=$("$cli" --json "x+x=4" left expand 2>/dev/null)
contains "json of a note that the left side only simplifies" "$json" '"left": "x+x"' \
  '"transcript": "\nConsider  the equation  @x+x=4@  \n"' \
  '"hints": ["Note:  The expression can be simplified like this:\n\n@x+x->2*x@  \n\nThere is nothing to expand.\n"]'
json=$("$cli" --json "1/(x*(x+1))" expand 2>/dev/null)
contains "json of expand leaving a denominator as it is" "$json" '"left": "1/(x*(x+1))"' \
  'There is nothing to expand.'

# A set of equations by elimination.
out=$("$cli" "x+y=3; x-y=1" elim assist-all 2>/dev/null)
contains "elim and assist-all solve a system step by step" "$out" \
  "The goal is to put the system into RREF form." "Apply ERO # 2, replacing R2 → R2 - 1 * R1" \
  "This form shows that the system of equations has a unique solution, namely:"
out=$("$cli" "x+y=3; x-y=1" elim "ero R2-R1" 2>/dev/null)
contains "ero applies a typed ERO and the grid is printed" "$out" \
  "Apply ERO # 2, replacing R2 → R2 - 1 * R1.  The system of equations becomes:" \
  "     1 x + 1 y =  3" "         - 2 y = -2"
json=$("$cli" --json "x+y=3; x-y=1" elim assist-all 2>/dev/null)
contains "json of a unique solution" "$json" '"grid": [["1", "0", "2"], ["0", "1", "1"]]' \
  '"system": "unique"' '"solution": {"x": "2", "y": "1"}' '"help": 296'
json=$("$cli" --json "x+2y=3; 2x+4y=10" elim assist-all 2>/dev/null)
contains "json of an inconsistent system" "$json" '"system": "none"' '"solution": null' \
  'No values of the variables will satisfy equation 2, which states that @0=4@ .'
json=$("$cli" --json "x+y=2; 2x+2y=4" elim assist-all 2>/dev/null)
contains "json of a redundant system" "$json" '"system": "infinite"' \
  'Also, the zero row at the bottom of the RREF form shows that the system of equations is redundant.'
json=$("$cli" --json "x+y=2; 2x-y=4" elim "ero R5*2" 2>/dev/null)
contains "json of a refused ERO" "$json" '"messages": ["Error in the ERO description."]' \
  '"grid": [["1", "1", "2"], ["2", "-1", "4"]]' '"system": null'
json=$("$cli" --json --set "Solve detail=0" "x+y=3; x-y=1" elim 2>/dev/null)
contains "json of a system solved with the result only" "$json" '"system": "unique"' \
  'puts it into Row-Reduced Echelon (or Gauss-Jordan) Form:'
check "a window word without a window" 3 "" \
  "No system of equations is open: load a set of equations and type elim or subs." "x+y=3; x-y=1" assist
printf 'x+y=3; x-y=1\telim ero R1;R2 assist-all\n' > "$work/elim.txt"
out=$("$cli" --json --batch "$work/elim.txt" 2>/dev/null)
contains "batch takes ero with its operation as the next word" "$out" \
  'Apply ERO # 3, swapping R1 and R2' '"system": "unique"'
printf 'x+y=3; x-y=1\telim assist-all\n(x]\n' > "$work/elim2.txt"
out=$("$cli" --json --batch "$work/elim2.txt" 2>/dev/null | tail -1)
contains "a refused batch line has no system of the line before" "$out" '"kind": null' \
  '"grid": null, "system": null, "solution": null'
out=$(printf 'x+y=3; x-y=1\nelim\nassist\nundo\nero R2-R1\nassist-all\nquit\n' | "$cli" 2>&1)
contains "the interactive tutor drives the window" "$out" "     [1] x + 1 y =  3" \
  "R2 - 1 * R1" "[Multi Eqns] commands: solve-all, elim, subs, substitute, graph   (system window: ero TEXT, undo, assist" \
  "This form shows that the system of equations has a unique solution, namely:"

# Solve.
json=$("$cli" --json "x^2=x" solve 2>/dev/null)
contains "json of solve gives the unknown and the answers" "$json" '"unknown": "x"' \
  '"answers": ["0", "1"]' '"left": "x"' '"right": "0"' \
  'Solve this equation for x by following these steps:' '"error": null'
json=$("$cli" --json "x+1=x+2" solve 2>/dev/null)
contains "json of solve with no solution" "$json" '"answers": ["no-solution"]'
json=$("$cli" --json "x=x" solve 2>/dev/null)
contains "json of solve of an identity" "$json" '"answers": ["any-value"]'
json=$("$cli" --json "sqrt(x+3)=x-3" solve 2>/dev/null)
contains "json of solve of a radical equation keeps the root that checks out" "$json" \
  '"answers": ["6"]' 'This is a radical equation with the radical term isolated.  Square both sides.'
json=$("$cli" --json "e^(2*x)-3*e^x+2=0" solve 2>/dev/null)
contains "json of solve of an exponential equation by an alias" "$json" \
  '"answers": ["ln(2)", "0"]' 'Temporarily replace the exponential @e^x@ with the alias Q'
out=$("$cli" "3^(x+1)=5^x" hint 2>/dev/null)
contains "hint of a two-term exponential equation" "$out" \
  "This is an exponential equation with exactly one term on each side of the equation."
json=$("$cli" --json --set "Degrees=True" "sin(x+30)+cos(x)=1" solve 2>/dev/null)
contains "json of solve of a trigonometric equation in degrees" "$json" \
  '"answers": ["arcsin(1/3*sqrt(3))-60"]' 'Combine the sin and cos into a sin with a phase angle.'
json=$("$cli" --json "sin(2x)+sin(x)=0" hint 2>/dev/null)
contains "json of the hint of a double angle" "$json" \
  'This is a trigonometric equation of the form\n     @A*sin(x)+B*sin(2x)=0@ .' '"help": 185'
json=$("$cli" --json "2x+3=7" left 2>/dev/null)
case "$json" in
  *'"answers"'*) echo "FAIL: json without a solve has answers"; failures=$((failures + 1)) ;;
  *) echo "ok: json without a solve has no answers" ;;
esac
json=$("$cli" --json --answers "no, yes" "a*y=b" solve 2>/dev/null)
contains "json of solve after the answers no, yes" "$json" '"unknown": "y"' \
  'x does not appear in this equation. Do you want the unknown to be a? [no]' \
  'x does not appear in this equation. Do you want the unknown to be y? [yes]'
json=$("$cli" --json "a*y=b" solve 2>/dev/null)
contains "solve's question takes yes by default" "$json" '"unknown": "a"' \
  'Do you want the unknown to be a? [yes]'
json=$("$cli" --json --answers cancel "a*y=b" solve 2>/dev/null)
contains "solve cancelled at the question" "$json" '"left": "a*y"' '"right": "b"'
check "a wrong answer word is a usage mistake" 64 "" "tavimor-cli: --answers needs a LIST of yes, no and cancel such as \"no, yes\".
Try 'tavimor-cli --help'." --answers "maybe" "a*y=b" solve
printf 'a*y=b\tsolve\nc*z=d\tsolve\n' > "$work/answers.txt"
out=$("$cli" --answers no --batch "$work/answers.txt" 2>/dev/null)
contains "each line of a batch takes the answers from the first" "$out" \
  "== a*y=b" "Do you want the unknown to be a? [no]" "Do you want the unknown to be y? [yes]"
[ "$(printf '%s\n' "$out" | grep -c '? \[no\]')" = 2 ] && echo "ok: both lines answered no first" ||
  { echo "FAIL: the answers were not taken anew"; failures=$((failures + 1)); }
out=$(printf 'a*y=b\nsolve\nn\ny\nquit\n' | "$cli" 2>/dev/null)
contains "the tutor asks which letter at the prompt" "$out" \
  "Do you want the unknown to be a? (y/n/c)" "Do you want the unknown to be y? (y/n/c)" \
  "Solve this equation for y by following these steps:"
out=$("$cli" --set "Solve detail=0" "2x=6" solve 2>/dev/null)
contains "solve with the result only" "$out" "Solving this equation yields the solution:" "x = 3"

# Batch.
printf '2x+3=7\tleft equation\n\n1/2+1/3\n(x]\n' > "$work/batch.txt"
out=$("$cli" --batch "$work/batch.txt" 2>"$work/err")
err=$(cat "$work/err")
contains "batch prints each line's work space" "$out" "== 2x+3=7" "Consider  the equation  2x + 3 = 7" \
  "== 1/2+1/3" "Consider  the sum of fractions" "== (x]"
contains "batch reports the count and time" "$err" "Error in input string.  Unmatched brackets." "3 lines in "
lines=$("$cli" --json --batch "$work/batch.txt" 2>/dev/null | wc -l)
"$cli" --batch "$work/batch.txt" >/dev/null 2>&1
status=$?
[ "$status" = 2 ] && echo "ok: a batch with a refused line exits 2" ||
  { echo "FAIL: batch status $status"; failures=$((failures + 1)); }
[ "$lines" = 3 ] && echo "ok: batch with json gives one object per line" || { echo "FAIL: $lines json lines"; failures=$((failures + 1)); }

# The tutor reading standard input.
out=$(printf 'x^2=4\nleft\nsimplify\nhelp\nstatus 4\nquit\n' | "$cli" 2>"$work/err")
err=$(cat "$work/err")
contains "the tutor from standard input" "$out" "Consider  the equation  x² = 4" \
  "[Equation] commands: solve, left, right" "[Left Side] commands: simplify, expand, expand-denominators, factor, factor-lcm, add-fractions, complete-square, ufoo, brackets, evaluate, tree, equation" \
  "There is nothing to simplify on the left side of the equation." "4: degrees "
# Complete the square from the terminal: the steps, the result in --json, nothing to convert.
out=$("$cli" "x^2+6*x+2" complete-square 2>&1)
contains "complete-square tells its steps" "$out" \
  "to completed square form by following these steps:" \
  "   - Call this quantity Q.  Add and subtract Q, like this:"
out=$("$cli" --json "x^2+6*x+2" complete-square 2>&1)
contains "complete-square with json leaves the completed square" "$out" '"left": "(x+3)^2-7"' \
  '"help": 69'
out=$("$cli" "x^3+x" complete-square 2>&1)
contains "complete-square with no quadratic says so" "$out" \
  "There is nothing to convert to completed square form."
# Add fractions from the terminal: the steps, and the single fraction in --json.
out=$("$cli" "1/x+1/(x+1)" add-fractions 2>&1)
contains "add-fractions tells its steps" "$out" "into one fraction by following these steps:" \
  "   - Find the lowest common denominator, namely x(x + 1) ."
out=$("$cli" --json "1/x+1/(x+1)" add-fractions 2>&1)
contains "add-fractions with json leaves one fraction" "$out" '"left": "(2*x+1)/x/(x+1)"' '"help": 291'
out=$("$cli" "x^2+1" add-fractions 2>&1)
contains "add-fractions with no fractions says so" "$out" "There are no fractions to combine."

out=$(printf 'x+1\nevaluate\nhello\n\n2\nquit\n' | "$cli" 2>"$work/err")
err=$(cat "$work/err")
contains "the tutor asks again for a refused value" "$out" \
  "With x = 2 the expression evaluates to 3 ."
contains "the tutor tells why a value was refused" "$err" \
  "The value of x must be a number or an expression of numbers." "Please give a value for x."
out=$(printf 'x+1\nevaluate\n5\nquit\n' | "$cli" --values "x=hello" 2>"$work/err")
err=$(cat "$work/err")
contains "the tutor asks for a given value that was refused" "$out" \
  "With x = 5 the expression evaluates to 6 ."

# Algebra files.
printf 'Topic:Linear\r\nComment:\r\nSubTop:One step\r\nComment:Undo one operation.\r\nEqn:x+3=7\r\nComment:Subtract 3.\r\n' > "$work/list.txt"
check "a file's list, indented with its comments" 0 "Linear
  One step
      # Undo one operation.
    x+3=7
      # Subtract 3." "" --file "$work/list.txt" --list
check "a known problem shows its comment" 0 "Consider  the equation  x + 3 = 7
Subtract 3." "" --file "$work/list.txt" "x + 3=7"
cp "$work/list.txt" "$work/saved.txt"
check "a new problem is remembered and saved" 0 "Consider  the equation  x = 1" "" \
  --file "$work/saved.txt" "x=1" --save
contains "the saved file holds the new problem" "$(cat "$work/saved.txt")" "Eqn:x=1"
check "a file that cannot be read is told" 2 "" "The file $work/none.txt could not be opened." \
  --file "$work/none.txt" "x"
check "save without a file is a usage mistake" 64 "" "tavimor-cli: --save needs --file PATH to save to.
Try 'tavimor-cli --help'." "x" --save
check "a file that cannot be written says why" 1 "Consider  the expression  x" \
  "File not saved.  The folder $work/no/such/dir does not exist." \
  "x" --save-as "$work/no/such/dir/x.txt"
check "a folder where the file should be says so" 1 "Consider  the expression  x" \
  "File not saved.  $work is a folder." "x" --save-as "$work"
check "an empty name to save as is no silent success" 1 "" \
  "File not saved.  No file name was given." --file "$work/list.txt" --save-as ""
check "a file is saved as another without an item" 0 "" "" --file "$work/list.txt" \
  --save-as "$work/copy.txt"
cmp -s "$work/list.txt" "$work/copy.txt" && echo "ok: the copy holds the same entries" ||
  { echo "FAIL: the copy differs"; failures=$((failures + 1)); }

# Saving from the interactive tutor and from a batch.
cp "$work/list.txt" "$work/session.txt"
printf 'x=5\r\nquit\r\n' | "$cli" --file "$work/session.txt" --save >/dev/null 2>&1
contains "the interactive tutor saves at its end" "$(cat "$work/session.txt")" "Eqn:x=5"
printf 'x=6\n' > "$work/one.txt"
"$cli" --batch "$work/one.txt" --file "$work/session.txt" --save >/dev/null 2>&1
contains "a batch saves at its end" "$(cat "$work/session.txt")" "Eqn:x=5" "Eqn:x=6"

# The list editor in the interactive tutor: edits kept and saved, quit refused while it is open,
# a cancel asked about first.
cp "$work/list.txt" "$work/edited.txt"
out=$(printf 'edit-list\ntopic 2\neqn 1\nnew-eqn x-2=5 | Add 2.\npromote\nquit\ntopic-up\nkeep\nquit\n' |
  "$cli" --file "$work/edited.txt" --save 2>&1)
contains "the list editor edits and keeps" "$out" "> 2. x-2=5    | Add 2." \
  "Click on Keep Changes or or Cancel Changes" "The changes are kept in the list"
contains "the edited list is saved" "$(cat "$work/edited.txt")" "Eqn:x-2=5" "Comment:Add 2."
cp "$work/list.txt" "$work/unedited.txt"
out=$(printf 'edit-list\nnew-topic Quadratic\ncancel\ny\nquit\n' |
  "$cli" --file "$work/unedited.txt" --save 2>&1)
contains "a cancel asks first and throws the changes away" "$out" \
  "Really want to throw away all changes?" "The changes are thrown away."
cmp -s "$work/list.txt" "$work/unedited.txt" && echo "ok: a cancelled edit leaves the file as it was" ||
  { echo "FAIL: a cancelled edit changed the file"; failures=$((failures + 1)); }
out=$(printf 'edit-list\nquit\n' | "$cli" 2>&1)
contains "the list editor needs a list" "$out" "No list is kept"

# Saving keeps a symbolic link, the file's permissions, and replaces a stale temporary file.
cp "$work/list.txt" "$work/target.txt"
chmod 600 "$work/target.txt"
ln -s target.txt "$work/link.txt"
printf 'stale' > "$work/target.txt.saving"
check "a save through a symbolic link" 0 "Consider  the equation  y = 2" "" \
  --file "$work/link.txt" "y=2" --save
[ -L "$work/link.txt" ] && echo "ok: the link stays a link" ||
  { echo "FAIL: the link became a file"; failures=$((failures + 1)); }
contains "the link's target holds the new problem" "$(cat "$work/target.txt")" "Eqn:y=2"
[ "$(stat -c %a "$work/target.txt")" = 600 ] && echo "ok: the file keeps its mode" ||
  { echo "FAIL: mode $(stat -c %a "$work/target.txt")"; failures=$((failures + 1)); }
[ ! -e "$work/target.txt.saving" ] && echo "ok: no temporary file is left" ||
  { echo "FAIL: a temporary file is left"; failures=$((failures + 1)); }

# What is not a regular file is refused; what is too large is refused.
check "a folder given as the file is refused" 2 "" \
  "tavimor-cli: the file $work is a folder: give a text file." --file "$work" "x"
check "a folder given as the batch is refused" 2 "" \
  "tavimor-cli: the batch file $work is a folder: give a text file." --batch "$work"
check "a device given as the file is refused" 2 "" \
  "tavimor-cli: the file /dev/zero is not a regular file: give a text file." --file /dev/zero "x"
{ printf 'Eqn:x\r\nComment:'; head -c 17000000 /dev/zero | tr '\0' 'a'; } > "$work/huge.txt"
check "a file too large to be an algebra file is refused" 2 "" \
  "The file $work/huge.txt is larger than 16 MB, more than an algebra file can be." \
  --file "$work/huge.txt" "x"

# A full list refuses a new problem before it is added, so the file stays readable.
{ printf 'Topic:Full\r\n'; for i in $(seq 1 499); do printf 'Eqn:x=%d\r\nComment:\r\n' "$i"; done; } \
  > "$work/full.txt"
out=$("$cli" --file "$work/full.txt" "y=1" --save 2>&1)
contains "a list of 999 entries refuses a new problem" "$out" \
  "The problem is not added to the list: it holds 999 entries or more"
check "the full list is still read after the save" 0 "Consider  the equation  x = 3" "" \
  --file "$work/full.txt" "x=3"

# Line ends: CR, LF and CR LF; the comment of a problem is the entry right after it.
printf 'Topic:One\rEqn:x=1\rComment:First\rsecond line\rTopic:Two\rEqn:x=2\rTopic:Three\r' \
  > "$work/cr.txt"
check "a file with CR line ends is read entry by entry" 0 "One
  x=1
    # First
    # second line
Two
  x=2
Three" "" --file "$work/cr.txt" --list
check "a problem followed by a topic has no comment" 0 "Consider  the equation  x = 2" "" \
  --file "$work/cr.txt" "x=2"

# Raw bytes never reach the terminal, and JSON stays valid.
printf 'Topic:Bell\a and \033[31mred\r\nEqn:x\r\nComment:caf\xe9 \033]0;title\a\r\n' > "$work/raw.txt"
check "control bytes in a file's list show in caret notation" 0 "Bell^G and ^[[31mred
  x
    # café ^[]0;title^G" "" --file "$work/raw.txt" --list
check "an unknown command with an escape shows it in caret notation" 3 "" \
  "Unknown command \"^[[2Jx\". 'tavimor-cli --help' lists the commands." "x" "$(printf '\033[2Jx')"
printf 'x\tfrobnicate\nx\tleft\nx\n(x]\n\xff\xfe=\x01\n%s\n' "$(head -c 2000000 /dev/zero | tr '\0' x)" \
  > "$work/mixed.txt"
"$cli" --json --batch "$work/mixed.txt" > "$work/mixed.json" 2>/dev/null
status=$?
[ "$(wc -l < "$work/mixed.json")" = 6 ] && echo "ok: batch json gives one object for every line" ||
  { echo "FAIL: $(wc -l < "$work/mixed.json") objects for 6 lines"; failures=$((failures + 1)); }
[ "$status" = 3 ] && echo "ok: batch exit status is that of the first failed line" ||
  { echo "FAIL: batch status $status"; failures=$((failures + 1)); }
python3 -c '
import json, sys
lines = open(sys.argv[1], "rb").read().decode("utf-8").splitlines()
errors = [json.loads(line)["error"] for line in lines]
assert errors[0].startswith("Unknown command") and "not on offer" in errors[1], errors
assert errors[2] is None and errors[3] and errors[4] and "longer than" in errors[5], errors
' "$work/mixed.json" && echo "ok: batch json is valid UTF-8 with each line's error" ||
  { echo "FAIL: batch json"; failures=$((failures + 1)); }

# A long batch of distinct lines runs in linear time (a few seconds for 100,000).
seq 1 100000 | sed 's/^/x+/' > "$work/long.txt"
"$cli" --batch "$work/long.txt" >/dev/null 2>"$work/err"
contains "a batch of 100,000 distinct lines" "$(cat "$work/err")" "100000 lines in "
printf 'x=7\nquit\n' | "$cli" --file "$work/list.txt" >/dev/null 2>"$work/err"
contains "new problems not saved are told at the end" "$(cat "$work/err")" \
  "The new problems are not saved in $work/list.txt: give --save to keep them."

# The interactive tutor: CR LF lines, a mistyped command, the course of a file.
out=$(printf 'x+x\r\nsimplfy\r\nSimplify\r\nsimplify\r\nquit\r\n' | "$cli" 2>"$work/err")
contains "a mistyped command is questioned and the item kept" "$out" "Did you mean simplify?" \
  "combining like terms x + x  →  2x"
case "$out$(cat "$work/err")" in
  *"^M"* | *"Consider  the expression  simplfy"*) echo "FAIL: a line with CR LF or a slip was loaded"; failures=$((failures + 1)) ;;
  *) echo "ok: lines ending in CR LF are read" ;;
esac
out=$(printf 'load\nload hint\nx+x\n(x]\nsimplify\nquit\n' | "$cli" 2>&1)
contains "load takes a command word as a problem on purpose" "$out" \
  "load takes the item to load" "Consider  the expression  hint" \
  "(simplify works on x+x, the item before the one refused.)"
out=$(printf 'list\nopen 2\nnext\nnext\nopen 9\nquit\n' | "$cli" --file "$work/cr.txt" 2>&1)
contains "the interactive tutor walks the problems of a file" "$out" "  1. x=1" "  2. x=2" \
  "Problem 2 of 2:" "Consider  the equation  x = 2" "That was the last problem of the file" \
  "The file's problems are numbered 1 to 2."
out=$(printf 'open 1\nnext\nquit\n' | "$cli" --file "$work/cr.txt" 2>&1)
contains "open shows a problem with its comment" "$out" "Problem 1 of 2:" \
  "Consider  the equation  x = 1" "First" "second line" "Problem 2 of 2:"

# Help.
help=$("$cli" --help)
contains "help explains the forms of use, options, commands and keys" "$help" "tree ITEM" \
  "--batch FILE" "--json" "--set KEY=VALUE" "--decimal-comma" "Exit status" "expand-denominators" \
  "Special P (first run: False)"

# A refused line of a batch reports its refusal, not the item before it.
sixty="x"; for _ in $(seq 59); do sixty="$sixty+x"; done
printf '2x+1\n%s\n1E309\n' "$sixty" > "$work/refused.txt"
"$cli" --batch "$work/refused.txt" --json > "$work/out" 2> "$work/err"
refused=$(sed -n 2p "$work/out")
contains "a line that fails to load reports no item" "$refused" '"kind": null' '"left": ""' \
  '"error": "Error in input string."'
too_large=$(sed -n 3p "$work/out")
contains "a number beyond the largest float is refused" "$too_large" '"kind": null' \
  "The number  1E309  is too large"

# The Fraction panel and the Number panel.
help=$("$cli" --help)
contains "help tells each word once, the words of the fraction and number tools built" "$help" \
  "  reduce                reduce the fraction to lowest terms
" "  add-fractions         add the fractions
" "  sig-figs              the number to N significant figures (sig-figs N, 1 to 20)
" "  prime-factors         the number's prime factors
"
[ "$(printf '%s\n' "$help" | grep -c '^  add-fractions ')" = 1 ] &&
  echo "ok: add-fractions is told once" || { echo "FAIL: add-fractions told more than once"; failures=$((failures + 1)); }
out=$("$cli" "6/8" reduce 2>&1)
contains "reduce narrates a fraction to lowest terms" "$out" \
  "To simplify this fraction, factor the numerator and the denominator completely" \
  "Cancelling 2 in the numerator and 2 in the denominator reduces the fraction to:" \
  "The fraction in simplest form is:"
out=$("$cli" "1/6+1/4" add-fractions 2>&1)
contains "add-fractions presses the Fraction panel's button for two fractions" "$out" \
  "Step 1:  Find the LCD (lowest common denominator)." \
  "common: 2" "Multiplying all these factors together gives the LCD:" \
  "In this case it is already in simplest form."
"$cli" "x/2+1/3" add-fractions > /dev/null 2> "$work/err"
case "$(cat "$work/err")" in
  *"not on offer"*) echo "FAIL: add-fractions of an expression is not the Expression panel's"; failures=$((failures + 1)) ;;
  *) echo "ok: add-fractions of an expression presses the Expression panel's button" ;;
esac
json=$("$cli" --json "1/65537+1/65539" add-fractions 2>/dev/null)
contains "an LCD too large is refused with its value and no error" "$json" \
  "because the LCD is 4295229443, which is bigger than the largest integer" '"error": null'
check "sig-figs N rounds the number" 0 "Consider  the number  3.14159

The number 3.14159 expressed to 5 significant figures is 3.1416
Dialog:
  Number:  3.14159
  Significant figures:  5" "" "3.14159" sig-figs 5
out=$("$cli" "2" sig-figs 2>&1)
contains "sig-figs alone takes 3 figures" "$out" "The number 2 expressed to 3 significant figures is 2.00"
check "sig-figs out of range is a usage mistake" 64 "" \
  "sig-figs takes the number of significant figures, 1 to 20, not \"25\"." "2" sig-figs 25
check "sig-figs with a negative count is a usage mistake" 64 "" \
  "sig-figs takes the number of significant figures, 1 to 20, not \"-3\"." "2" sig-figs -3
out=$("$cli" "-12" prime-factors 2>&1)
contains "prime-factors factors the whole number" "$out" \
  "The number -12 in factored form is -2 * 2 * 3" "  Number to be factored:  -12" \
  "  -12 can be factored as -2 * 6 so -12 can now be written as" \
  "  The number is now completely factored."
json=$("$cli" --json "97" prime-factors 2>/dev/null)
contains "json carries the prime-factor dialog" "$json" \
  '"dialog": ["Number to be factored:  97", "97 can be factored as 97 * 1 so 97 can now be written as", "97", "The number is now completely factored."]' \
  "The number 97 is prime and can't be factored"
check "prime-factors of a non-integer is not on offer" 3 "" \
  "The command \"prime-factors\" is not on offer now." "3.5" prime-factors
out=$(printf '2\nsig-figs\n25\n5\nquit\n' | "$cli" 2>"$work/err")
contains "the tutor asks for the figures and asks again for a count out of range" "$out" \
  "Significant figures for 2 (1 to 20) [3] " "The figures are a whole number from 1 to 20." \
  "The number 2 expressed to 5 significant figures is 2.0000"
out=$(printf -- '-12\nprime-factors\n\n\nsig-figs 4\nquit\n' | "$cli" --set "Streaming output=False" 2>"$work/err")
contains "the tutor factors one step an Enter, and takes sig-figs N" "$out" \
  "[Number] commands: sig-figs, prime-factors" "[Enter: next factor   q: close]" \
  "The number -12 in factored form is -2 * 2 * 3" \
  "The number -12 expressed to 4 significant figures is -12.00"

# Graphs: the JSON of the curves, the SVG of --plot, the sketch in braille dots.
json=$("$cli" --json "y=1/x" graph 2>/dev/null)
contains "json of a graph carries its window and sampled curve" "$json" \
  '"graph": {"x": [-10, 10], "y": [-10, 10], "curves": [{"equation": "y=1/x", "kind": "1", "colour": "#ff0000", "points": [[-10, -0.1], ' \
  ', null, '
"$cli" --plot "$work/circle.svg" "r=2" graph >/dev/null 2>&1
status=$?
svg=$(cat "$work/circle.svg" 2>/dev/null)
contains "plot writes the graph as SVG" "$svg" '<svg xmlns="http://www.w3.org/2000/svg" width="500" height="500"' \
  '<polyline fill="none" stroke="#ff0000" stroke-width="2" points="'
[ "$status" = 0 ] && echo "ok: plot exits 0" || { echo "FAIL: plot status $status"; failures=$((failures + 1)); }
"$cli" --plot "$work/no/such/dir/x.svg" "y=x" graph >/dev/null 2>"$work/err"
status=$?
[ "$status" = 64 ] && echo "ok: a plot that cannot be written is a usage mistake" || { echo "FAIL: unwritable plot status $status"; failures=$((failures + 1)); }
json=$("$cli" --json "x^2+y^2=4" graph 2>/dev/null)
contains "json of an implicit curve lists its one closed contour" "$json" \
  '"curves": [{"equation": "x^2+y^2=4", "kind": "2", "colour": "#ff0000", "contours": [{"closed": true, "points": [['
case "$json" in *'"closed": false'*|*'}, {"closed"'*) echo "FAIL: the circle is more than one closed contour"; failures=$((failures + 1)) ;; *) echo "ok: the circle is one closed contour" ;; esac
"$cli" --plot "$work/implicit.svg" "x^2+y^2=4" graph >/dev/null 2>&1
svg=$(cat "$work/implicit.svg" 2>/dev/null)
contains "plot draws an implicit curve as a polyline" "$svg" '<polyline fill="none" stroke="#ff0000" stroke-width="2" points="'
check "graph is not on offer for an expression" 3 "" \
  "The command \"graph\" is not on offer now: its button is on the Equation panel." "2+2" graph
json=$("$cli" --json "y=a*x" graph 2>/dev/null)
contains "json of a refused graph has its message and no graph" "$json" \
  '"messages": ["Error: Can'"'"'t graph y=a*x."]'
case "$json" in *'"graph"'*) echo "FAIL: refused graph has a picture"; failures=$((failures + 1)) ;; *) echo "ok: refused graph has no picture" ;; esac
out=$(printf 'y=x\ngraph\nquit\n' | "$cli" 2>"$work/err")
contains "the tutor sketches the graph in braille dots" "$out" "x from -10 to 10, y from -10 to 10" "⠀"

# An equation solved by hand, one operation on both sides at a time.
json=$("$cli" --json "2x+3=7" both-sides - 3 both-sides / 2 2>/dev/null)
contains "both-sides subtracts and divides, each step with its simplification" "$json" \
  '"left": "x"' '"right": "2"' 'Subtracting @3@ from both sides yields:' \
  'Dividing both sides by @2@ yields:' 'Simplifying this yields:' '"help": 144' '"error": null'
json=$("$cli" --json "x^2=9" both-sides sqrt - 2>/dev/null)
contains "both-sides sqrt takes the sign of the right side" "$json" '"right": "-3"' \
  'Taking the square root of both sides and using the - sign on the right side yields:'
json=$("$cli" --json "5=x" both-sides swap 2>/dev/null)
contains "both-sides swap exchanges the sides in one step" "$json" '"left": "x"' '"right": "5"' \
  'Swapping sides yields:'
check "both-sides refuses a value that is an equation with the dialog's message" 3 "" \
  "The textbox for Q must contain a valid expression, not an equation" "2x=4" both-sides / "x=1"
check "both-sides refuses an empty value" 3 "" \
  "The textbox for Q must contain a valid expression" "2x=4" both-sides "*"
check "both-sides refuses a value the input check refuses, with its message" 3 "" \
  "Error in input string.  Unmatched brackets." \
  "2x=4" both-sides + "(x"
check "both-sides needs an equation" 3 "" \
  "both-sides works on an equation: load one first." "x+1" both-sides swap
out=$("$cli" "2x=4" both-sides frob 2>&1 >/dev/null)
contains "both-sides names its operations when one is unknown" "$out" "swap" "subtract-right" \
  "for example both-sides + 3"
printf '2x+3=7\tboth-sides - 3 both-sides / 2\n' > "$work/both.txt"
out=$("$cli" --json --batch "$work/both.txt" 2>/dev/null)
contains "batch takes both-sides with its operation and value as the next words" "$out" \
  '"left": "x"' '"right": "2"'
out=$(printf '2x+3=7\nboth-sides - 3\nhint\nquit\n' | "$cli" 2>"$work/err")
contains "the tutor takes both-sides and hint on a line" "$out" \
  "Subtracting 3 from both sides yields:" "Hint:" "Simplify by dividing both sides through by"

# Hints, and sets of equations.
json=$("$cli" --json "2x+3=7" hint 2>/dev/null)
contains "hint carries the next step in --json and leaves the equation" "$json" \
  'Subtract @3@ from both sides.\n"]' '"left": "2*x+3"' \
  '"right": "7"' '"error": null'
json=$("$cli" --json "y=2; x+y=5" substitute 2>/dev/null)
contains "substitute puts the other equations into the last" "$json" '"kind": "equation"' \
  '"panel": "Equation"' '"left": "x+(2)"' '"right": "5"' 'Substituting' '@y->2@' \
  'into the equation @x+y=5@ yields'
json=$("$cli" --json "y=2; x+z=5" substitute 2>/dev/null)
contains "substitute tells when nothing was substituted" "$json" \
  '"messages": ["No substitutions were found"]'
json=$("$cli" --json "y=2; x+y" substitute 2>/dev/null)
contains "substitute refuses a set whose last item is no equation" "$json" \
  '"messages": ["Error: The right side of a substitution must be an expression"]'
printf 'Topic:Linear\r\nSubTop:One step\r\nEqn:x+1=3\r\nComment:\r\nEqn:x^2+x\r\nComment:\r\nEqn:2x=8\r\nComment:\r\n' > "$work/list.txt"
json=$("$cli" --json --file "$work/list.txt" "x+y=3; x-y=1" solve-all 2>/dev/null)
contains "solve-all solves the equations of the file with the result only" "$json" \
  "Solving this equation yields the solution:" '@x=2@' '@x=4@' \
  '"messages": ["time taken for 2 equations was '
out=$(printf '3x=9\nx=1;y=2\nsolve-all\nquit\n' | "$cli" --file "$work/list.txt" 2>&1)
contains "the tutor's solve-all takes the problems of the file and those typed" "$out" \
  "time taken for 3 equations was"
json=$("$cli" --json --set "Complex form=1" "(1+2i)*(3-i)" simplify 2>/dev/null)
contains "simplify multiplies complex numbers with the complex option set" "$json" \
  '"left": "5*i+5"' 'Simplify by multiplying complex numbers @(-i+3)*(2*i+1)->5+5*i@ .'
json=$("$cli" --json --set "Complex form=2" "x^2+4=0" solve 2>/dev/null)
contains "solve gives and checks the imaginary roots with the unit written j" "$json" \
  '@x=2*j@' '@x=-2*j@' 'so this solution checks out.'
json=$("$cli" --json --set "Complex form=1" "e^(i*x)" break-trig 2>/dev/null)
contains "break-trig writes the complex exponential by Euler's formula" "$json" \
  '"left": "cos(x)+i*sin(x)"'

# The Useful form of one: a form named or typed, or the choices listed.
contains "ufoo multiplies by the conjugate of the denominator" \
  "$("$cli" --json "1/(1+sqrt(2))" ufoo conjugate 2>&1)" \
  'Applying the UFOO @(1-sqrt(2))/(1-sqrt(2))@  yields' '"left": "(-sqrt(2)+1)/(-1)"'
contains "ufoo alone lists the choices on offer" "$("$cli" "1/(1+sqrt(2))" ufoo 2>&1)" \
  "Multiply the expression by a Useful Form Of One (UFOO)" "ufoo conjugate   Use the conjugate" \
  "ufoo TEXT"
contains "ufoo refuses an equation typed as the form" "$("$cli" "x/(x+1)" ufoo "x=2" 2>&1)" \
  "The numerator box must contain a valid expression, not an equation."

# Substitution: the window's words, the equations listed after each change, the JSON fields.
json=$("$cli" --json "2x+3y=8; x-y=-1" subs "choose 2 x" ok continue "choose 1 y" ok continue 2>&1)
contains "subs solves a system by substitution" "$json" \
  'Select the equation @x-y=-1@, solve it for x, and set it aside as Equation # 1:' \
  'This is the unique solution of the system of equations.' '"system": "unique"' \
  '"solution": {"x": "1", "y": "2"}'
contains "subs lists the remaining equations after a substitution" \
  "$("$cli" "2x+3y=8; x-y=-1" subs "choose 2 x" ok 2>&1)" "R1: 2*(y-1)+3*y=8" \
  "Equation # 1: x=y-1" "Click on Continue."
contains "subs reads an inconsistent pair" \
  "$("$cli" --json "x+y=2; 2x+2y=5" subs "choose 1 x" ok continue 2>&1)" \
  'This indicates that the system of equations has no solution.' '"system": "none"'

[ "$failures" -eq 0 ]
