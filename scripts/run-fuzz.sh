#!/usr/bin/env bash
# Runs every fuzz target of a checked build for a while, each from its seed corpus
# (tests/fuzz/corpus/<name>, copied: the repository's corpus is never changed).
# A crash, a sanitizer report or a leak fails the run; the input is left in the work folder.
set -euo pipefail
build="$(cd "${1:-build-check}" && pwd)"
secondi="${2:-60}"
radice="$(cd "$(dirname "$0")/.." && pwd)"
lavoro="$(mktemp -d "${TMPDIR:-/tmp}/zef-fuzz.XXXXXX")"
stato=0
for bersaglio in "$build"/bin/fuzz_*; do
  [ -x "$bersaglio" ] || continue
  nome="$(basename "$bersaglio")"
  nome="${nome#fuzz_}"
  corpus="$lavoro/$nome"
  mkdir -p "$corpus"
  if [ -d "$radice/tests/fuzz/corpus/$nome" ]; then cp -r "$radice/tests/fuzz/corpus/$nome/." "$corpus/"; fi
  echo "== fuzz $nome, ${secondi} s"
  if ! (cd "$lavoro" && "$bersaglio" -max_total_time="$secondi" -timeout=20 -rss_limit_mb=2560 \
        -print_final_stats=1 "$corpus" > "$lavoro/$nome.log" 2>&1); then
    echo "!! fuzz $nome: fallito (registro e input in $lavoro)"
    tail -40 "$lavoro/$nome.log"
    stato=1
  else
    grep -E "stat::number_of_executed_units|stat::peak_rss_mb" "$lavoro/$nome.log" || true
  fi
done
[ "$stato" -eq 0 ] && rm -rf "$lavoro"
exit "$stato"
