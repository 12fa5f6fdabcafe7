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

# Loading an item and running commands.
check "an equation is considered and drawn" 0 "Consider  the equation  2x + 3 = 7" "" "2x+3=7"
check "a fraction is set in two dimensions" 0 "                         3
Consider  the fraction  ───
                         4" "" "3/4"
check "evaluate with the values given" 0 "Consider  the expression  x² + y
With x = 3; y = -1 the expression evaluates to 8 ." "" --values "x=3; y=-1" "x^2+y" evaluate
check "evaluate without a value is a usage mistake" 64 "Consider  the expression  x + 1" \
  "tavimor-cli: evaluate needs a value for x: give --values \"x=...\"." "x+1" evaluate
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
check "a command still to come exits 3" 3 "" \
  "The command \"expand\" is not available yet: its part of the tutor has not been built." \
  "x+x" expand
check "simplify shows its steps in a stream" 0 "Consider  the expression  x + x
Simplify the sum x + x by:
   - combining like terms x + x  →  2x .
   - The result is:

    2x

There is nothing to simplify." "" "x+x" simplify

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

# Batch.
printf '2x+3=7\tleft equation\n\n1/2+1/3\n(x]\n' > "$work/batch.txt"
out=$("$cli" --batch "$work/batch.txt" 2>"$work/err")
err=$(cat "$work/err")
contains "batch prints each line's work space" "$out" "== 2x+3=7" "Consider  the equation  2x + 3 = 7" \
  "== 1/2+1/3" "Consider  the sum of fractions" "== (x]"
contains "batch reports the count and time" "$err" "Error in input string.  Unmatched brackets." "3 lines in "
lines=$("$cli" --json --batch "$work/batch.txt" 2>/dev/null | wc -l)
[ "$lines" = 3 ] && echo "ok: batch with json gives one object per line" || { echo "FAIL: $lines json lines"; failures=$((failures + 1)); }

# The tutor reading standard input.
out=$(printf 'x^2=4\nleft\nsimplify\nhelp\nstatus 4\nquit\n' | "$cli" 2>"$work/err")
err=$(cat "$work/err")
contains "the tutor from standard input" "$out" "Consider  the equation  x² = 4" \
  "[Equation] commands: left, right" "[Left Side] commands: simplify, brackets, evaluate, equation" \
  "There is nothing to simplify on the left side of the equation." "4: degrees "
out=$(printf 'x+x\nexpand\nquit\n' | "$cli" 2>"$work/err")
err=$(cat "$work/err")
contains "the tutor says what is still to come" "$err" "is not available yet"

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
check "a file that cannot be written" 1 "Consider  the expression  x" "File not saved." \
  "x" --save-as "$work/no/such/dir/x.txt"

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

[ "$failures" -eq 0 ]
