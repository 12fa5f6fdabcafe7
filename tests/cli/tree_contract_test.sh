#!/usr/bin/env bash
# The terminal tutor's tree command as a program: output, standard error and exit status.
set -u
cli="$1"
failures=0

check() {  # name, expected status, expected stdout, expected stderr, args...
  local name="$1" want_status="$2" want_out="$3" want_err="$4"
  shift 4
  local out err status
  out=$("$cli" "$@" 2>/tmp/tavimor_contract_err.$$)
  status=$?
  err=$(cat /tmp/tavimor_contract_err.$$)
  rm -f /tmp/tavimor_contract_err.$$
  if [ "$status" != "$want_status" ] || [ "$out" != "$want_out" ] || [ "$err" != "$want_err" ]; then
    echo "FAIL: $name"
    echo "  status $status (wanted $want_status)"
    echo "  stdout: $out"
    echo "  wanted: $want_out"
    echo "  stderr: $err"
    echo "  wanted: $want_err"
    failures=$((failures + 1))
  else
    echo "ok: $name"
  fi
}

check "accepted item prints its tree" 0 "¶¶     2*x+3
  +¶     2*x
    NN     2
    NV     x
  +N     3" "" tree "2x+3"

check "equation prints both sides" 0 "¶V     x
=
¶N     7" "" tree "x=7"

check "refused item prints the message alone on standard error" 2 "" \
  "Error in input string.  Invalid symbol + at end of expression." tree "2x+"

check "decimal comma" 0 "¶N     1,5" "" --decimal-comma tree "1,50"

check "a set option changes nothing the tree shows" 0 "¶V     p" "" --set "Special P=True" tree "p"

check "bad option value is a usage mistake" 64 "" \
  "tavimor-cli: The option \"Complex form\" takes a whole number from 0 to 3, not \"9\".
Try 'tavimor-cli --help'." --set "Complex form=9" tree "x"

check "unknown command is a usage mistake" 64 "" "tavimor-cli: unknown command \"frobnicate\".
Try 'tavimor-cli --help'." frobnicate x

help=$("$cli" --help)
case "$help" in
  *"tree ITEM"*"--set KEY=VALUE"*"--decimal-comma"*"Special P (first run: False)"*) echo "ok: help" ;;
  *) echo "FAIL: help text"; failures=$((failures + 1)) ;;
esac

piped=$(printf '2x\n\nx=\n' | "$cli" 2>&1)
want="¶¶     2*x
  NN     2
  NV     x
Error in input string.  Missing right side."
if [ "$piped" == "$want" ]; then echo "ok: items from standard input"; else
  echo "FAIL: items from standard input: $piped"; failures=$((failures + 1)); fi

[ "$failures" -eq 0 ]
