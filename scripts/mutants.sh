#!/usr/bin/env bash
# Measures how many faults the tests find. Puts each single-line fault of
# scripts/mutants.list into a scratch copy of the tree, one at a time,
# rebuilds the 64-bit Debug build there, runs the test programs the fault
# names, and puts the line back. A fault counts as killed only when a test
# program ran with it in place and failed, crashed or hung. The developer's
# tree is never written to.
#
# Usage:
#   scripts/mutants.sh [FOLDER...]   every fault, or those of the folders named
#                                    (base core app controls dialogs streams
#                                    graphics filters)
#   scripts/mutants.sh --check [FOLDER...]
#                                    only checks that each fault's text occurs
#                                    exactly once in the tree, without building
#
# The scratch copy and its build stay between runs, so a second run builds
# only what changed: $ZK_MUTANTS_DIR, by default a folder under /tmp named
# after the tree. One line per fault says killed, survived, stale (its text
# is not found exactly once), no build (it does not compile) or error (the
# test run itself went wrong); the last line is "mutants: K killed of N".
# Each fault's build and test output is kept under the scratch folder's logs/.
set -uo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/.." && pwd)
list="$here/mutants.list"
folders="base core app controls dialogs streams graphics filters"

die() {
  echo "mutants: $*" >&2
  exit 2
}

# ---------------------------------------------------------------- the list

ids=() files=() finds=() withs=() tests=() whys=()

# Reads the records of the list into the arrays above; every record needs
# all its fields, and its tests must be CTest entries of its kind.
read_list() {
  local line key value n=-1 lineno=0
  [ -f "$list" ] || die "no list at $list"
  while IFS= read -r line || [ -n "$line" ]; do
    lineno=$((lineno + 1))
    case "$line" in '#'* | '') continue ;; esac
    key=${line%%[[:space:]]*}
    value=${line#"$key"}
    value=${value#"${value%%[![:space:]]*}"}
    case "$key" in
      mutant)
        n=$((n + 1))
        ids[n]=$value files[n]= finds[n]= withs[n]= tests[n]= whys[n]=
        ;;
      file | find | with | tests | why)
        [ "$n" -ge 0 ] || die "$list:$lineno: $key before any mutant"
        case "$key" in
          file) files[n]=$value ;;
          find) finds[n]=$value ;;
          with) withs[n]=$value ;;
          tests) tests[n]=$value ;;
          why) whys[n]=$value ;;
        esac
        ;;
      *) die "$list:$lineno: unknown field '$key'" ;;
    esac
  done <"$list"
  local i
  for i in "${!ids[@]}"; do
    [ -n "${ids[i]}" ] && [ -n "${files[i]}" ] && [ -n "${finds[i]}" ] && [ -n "${tests[i]}" ] ||
      die "mutant '${ids[i]}' lacks a name, file, find or tests"
    [ "${finds[i]}" != "${withs[i]}" ] || die "mutant ${ids[i]} changes nothing"
  done
}

folder_of() {
  echo "${1%%/*}"
}

# The indices of the mutants of the folders asked for, all without any.
selected=()
select_mutants() {
  local i want
  for want in "$@"; do
    case " $folders " in *" $want "*) ;; *) die "unknown folder '$want' (one of: $folders)" ;; esac
  done
  for i in "${!ids[@]}"; do
    if [ $# -eq 0 ] || [[ " $* " == *" $(folder_of "${files[i]}") "* ]]; then
      selected+=("$i")
    fi
  done
  [ ${#selected[@]} -gt 0 ] || die "no mutants for: $*"
}

# How often the text occurs in the file, within lines.
occurrences() {
  FIND=$2 awk '
    { s = $0
      while ((i = index(s, ENVIRON["FIND"])) > 0) { n++; s = substr(s, i + length(ENVIRON["FIND"])) } }
    END { print n + 0 }' "$1"
}

# The number of the line where the text occurs.
line_of() {
  FIND=$2 awk 'index($0, ENVIRON["FIND"]) { print NR; exit }' "$1"
}

# Writes the file with the one occurrence of the text replaced.
replace_once() {
  FIND=$2 WITH=$3 awk '
    !done && (i = index($0, ENVIRON["FIND"])) {
      $0 = substr($0, 1, i - 1) ENVIRON["WITH"] substr($0, i + length(ENVIRON["FIND"])); done = 1 }
    { print }' "$1"
}

# ------------------------------------------------------------- --check mode

check() {
  local i bad=0 count
  for i in "${selected[@]}"; do
    if [ ! -f "$root/${files[i]}" ]; then
      count=0
    else
      count=$(occurrences "$root/${files[i]}" "${finds[i]}")
    fi
    if [ "$count" = 1 ]; then
      printf '%-8s %-12s %s:%s\n' ok "${ids[i]}" "${files[i]}" "$(line_of "$root/${files[i]}" "${finds[i]}")"
    else
      printf '%-8s %-12s %s: found %s times\n' stale "${ids[i]}" "${files[i]}" "$count"
      bad=1
    fi
  done
  echo "mutants: ${#selected[@]} checked"
  return $bad
}

# ------------------------------------------------------------ scratch copy

# The developer's files as they stand, committed or not, without what git
# ignores (the builds among it).
tree_files() {
  if git -C "$root" rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    git -C "$root" ls-files -z --cached --others --exclude-standard
  else
    (cd "$root" && find . -path ./.git -prune -o -path './build*' -prune -o -type f -print0 | sed -z 's|^\./||')
  fi
}

# Brings the scratch copy up to the tree: a file that differs is copied
# afresh, so that its new time tells the build to compile it again, and a
# file that the tree no longer has goes.
sync_copy() {
  local src=$1 file wanted
  mkdir -p "$src"
  wanted=$(mktemp)
  while IFS= read -r -d '' file; do
    [ -f "$root/$file" ] || continue
    printf '%s\n' "$file" >>"$wanted"
    if ! cmp -s "$root/$file" "$src/$file"; then
      mkdir -p "$(dirname "$src/$file")"
      cp "$root/$file" "$src/$file" || die "cannot copy $file"
    fi
  done < <(tree_files)
  (cd "$src" && find . -type f | sed 's|^\./||' | sort) | comm -23 - <(sort "$wanted") |
    while IFS= read -r file; do rm -f "$src/$file"; done
  rm -f "$wanted"
}

default_work() {
  local key
  key=$(printf '%s' "$root" | md5sum | cut -c1-8)
  echo "${TMPDIR:-/tmp}/zk-mutants-$(id -u)-$key"
}

# ---------------------------------------------------------------- the run

# The CTest entries of the selected mutants, each once.
entries_needed() {
  local i t
  for i in "${selected[@]}"; do
    for t in ${tests[i]}; do echo "$t"; done
  done | sort -u
}

# The program that a CTest entry runs is its folder's.
target_of() {
  echo "${1%%_*}_tests"
}

# Runs CTest entries under a time limit; the output goes to the log.
# Answers ctest's status, 124 for a run stopped at the limit.
run_entries() {
  local build=$1 limit=$2 log=$3
  shift 3
  local pattern
  pattern="^($(
    IFS='|'
    echo "$*"
  ))\$"
  timeout -k 15 "$limit" ctest --test-dir "$build" -R "$pattern" --no-tests=error --output-on-failure \
    >>"$log" 2>&1 </dev/null
}

# Whether a test program, or a second program that a test started, still
# runs in this session's prefix.
leftovers() {
  local pid
  for pid in $(pgrep -f '_tests\.exe|zktwice\.exe'); do
    if { tr '\0' '\n' <"/proc/$pid/environ"; } 2>/dev/null | grep -qxF "WINEPREFIX=$WINEPREFIX"; then
      return 0
    fi
  done
  return 1
}

# Ends whatever a hung or crashed run left in the Wine session (child
# programs, open message boxes), so that it cannot fail the next mutant's
# tests, and starts the session's server and services again.
clean_session() {
  wineserver -k >/dev/null 2>&1 </dev/null
  wineserver -w >/dev/null 2>&1 </dev/null
  wineserver -p >/dev/null 2>&1 </dev/null
  "$ZK_WINE" wineboot >/dev/null 2>&1 </dev/null
}

# What failed in a test log: the first failing tests by name, how many more,
# or else what CTest said of each entry (a crash, a time-out).
failures() {
  local names
  names=$(grep -oE '^\[  FAILED  \] [A-Za-z0-9_/]+\.[A-Za-z0-9_/]+' "$1" | sed 's/^.*\] //' | sort -u)
  if [ -n "$names" ]; then
    echo "$names" | head -2 | paste -sd ' ' -
    local more=$(($(echo "$names" | wc -l) - 2))
    [ "$more" -le 0 ] || echo " and $more more"
  else
    grep -E '^\s*[0-9]+ - ' "$1" | sed 's/^\s*[0-9]* - //' | paste -sd ';' -
  fi | paste -sd '' -
}

# Inside the Wine session: the baseline, then each mutant in turn. The score
# is left in the scratch folder for the last line of the run.
file= backup= src=
inside() {
  local work=$1 build=$1/x86_64 logs=$1/logs
  src=$1/src
  backup=$1/original
  mkdir -p "$logs"
  rm -f "$logs"/*.log "$work/score"

  # Without the faults every entry must pass, or a failure would be taken
  # for a kill. Its time sets the limit after which a run counts as hung.
  declare -A limit=()
  local entry t0 spent
  for entry in $(entries_needed); do
    t0=$SECONDS
    if ! run_entries "$build" 900 "$logs/baseline-$entry.log" "$entry"; then
      echo "baseline: $entry fails without any fault; see $logs/baseline-$entry.log" >&2
      return 2
    fi
    spent=$((SECONDS - t0))
    limit[$entry]=$((spent * 3 + 60))
    printf 'baseline %-20s passes in %ss\n' "$entry" "$spent"
  done

  local i original status detail count line= t targets limit_s
  local killed=0 survived=0 stale=0 nobuild=0 errors=0
  local -a survivors=() others=()
  # The file is put back however the run ends.
  trap 'if [ -n "$file" ] && [ -f "$backup" ]; then cp "$backup" "$src/$file"; fi' EXIT
  trap 'exit 130' INT TERM

  for i in "${selected[@]}"; do
    file=${files[i]}
    original=$src/$file
    local log=$logs/${ids[i]}.log
    t0=$SECONDS
    detail=
    count=0
    [ -f "$original" ] && count=$(occurrences "$original" "${finds[i]}")
    if [ "$count" != 1 ]; then
      status=stale
      detail="found $count times"
      file=
      printf '%s\n' "$detail" >"$log"
    else
      line=$(line_of "$original" "${finds[i]}")
      cp "$original" "$backup"
      replace_once "$backup" "${finds[i]}" "${withs[i]}" >"$original"
      {
        echo "== ${ids[i]}: ${whys[i]}"
        echo "== $file:$line"
        diff "$backup" "$original"
      } >"$log"
      targets=
      limit_s=0
      for t in ${tests[i]}; do
        targets+=" $(target_of "$t")"
        limit_s=$((limit_s + ${limit[$t]}))
      done
      echo "== build" >>"$log"
      # shellcheck disable=SC2086
      if ! cmake --build "$build" -j 2 --target $targets >>"$log" 2>&1 </dev/null; then
        status="no build"
      elif [[ $file == *.cpp ]] && ! grep -qF "/$file.obj" "$log"; then
        # A build that did not compile the changed file tests the old code.
        status=error
        detail="the changed file was not compiled"
      else
        echo "== tests" >>"$log"
        # shellcheck disable=SC2086
        run_entries "$build" "$limit_s" "$log" ${tests[i]}
        case $? in
          0) status=survived ;;
          124 | 137)
            status=killed
            detail="hung past ${limit_s}s"
            clean_session
            ;;
          *)
            if grep -q 'tests FAILED' "$log"; then
              status=killed
              detail=$(failures "$log")
              if grep -qE '\*\*\*(Exception|Timeout)' "$log" || leftovers; then
                clean_session
              fi
            else
              status=error
              detail="the tests did not run; see the log"
            fi
            ;;
        esac
      fi
      cp "$backup" "$original"
      file=
    fi
    case $status in
      killed) killed=$((killed + 1)) ;;
      survived)
        survived=$((survived + 1))
        survivors+=("${ids[i]}  ${files[i]}:$line  ${whys[i]}")
        ;;
      stale) stale=$((stale + 1)) others+=("${ids[i]} stale") ;;
      "no build") nobuild=$((nobuild + 1)) others+=("${ids[i]} no build") ;;
      error) errors=$((errors + 1)) others+=("${ids[i]} error") ;;
    esac
    printf '%-9s %-12s %-28s %4ss  %s%s\n' "$status" "${ids[i]}" "${files[i]}${line:+:$line}" \
      "$((SECONDS - t0))" "${whys[i]}" "${detail:+  [$detail]}"
    line=
  done
  rm -f "$backup"

  echo
  if [ ${#survivors[@]} -gt 0 ]; then
    echo "survivors, faults that no test noticed:"
    printf '  %s\n' "${survivors[@]}"
  fi
  if [ ${#others[@]} -gt 0 ]; then
    echo "not measured:"
    printf '  %s\n' "${others[@]}"
  fi
  echo "logs: $logs"
  echo "killed $killed, survived $survived, stale $stale, no build $nobuild, error $errors"
  echo "$killed ${#selected[@]}" >"$work/score"
  [ $((stale + nobuild + errors)) -eq 0 ]
}

# ------------------------------------------------------------------- main

# The whole run is one function, read before it starts, so that editing this
# file during a run changes nothing of it.
main() {
  local mode=run work=
  case "${1:-}" in
    --check)
      mode=check
      shift
      ;;
    --inside)
      mode=inside
      work=${2:?}
      shift 2
      ;;
    -h | --help)
      sed -n '2,/^set -uo/p' "$0" | sed '$d; s/^# \{0,1\}//'
      return 0
      ;;
    -*) die "unknown option $1" ;;
  esac

  read_list
  select_mutants "$@"

  case $mode in
    check)
      check
      return
      ;;
    inside)
      inside "$work"
      return
      ;;
  esac

  work=${ZK_MUTANTS_DIR:-$(default_work)}
  mkdir -p "$work" || die "cannot make $work"
  work=$(cd "$work" && pwd)
  exec 9>"$work/lock"
  flock -n 9 || die "another run uses $work"

  local started=$SECONDS status killed total
  echo "== copying the tree to $work/src"
  # A fault left behind by an interrupted run is undone here too: every file
  # that differs from the tree is copied again.
  sync_copy "$work/src"
  echo "== building $work/x86_64"
  (
    . "$work/src/scripts/arch.sh"
    zk_build x86_64 "$work/x86_64" Debug >"$work/build.log" 2>&1
  ) || die "the tree does not build; see $work/build.log"
  # The copy's own script and list run the faults: the tree may change
  # meanwhile.
  "$work/src/scripts/wine-session.sh" "$work/x86_64" bash "$work/src/scripts/mutants.sh" --inside "$work" "$@"
  status=$?
  echo "time: $(((SECONDS - started) / 60))m$(((SECONDS - started) % 60))s"
  [ -f "$work/score" ] || return 2
  read -r killed total <"$work/score"
  echo "mutants: $killed killed of $total"
  return $status
}

main "$@"; exit $?
