#!/bin/sh
# Has ImageMagick read every picture that the image tests wrote with the
# library, and compare it pixel by pixel with the picture the test meant,
# which the test wrote beside it as a PPM without the library's help.
set -eu
dir=$1
compare=/usr/bin/compare
[ -x "$compare" ] || compare=compare
count=0
for written in "$dir"/*.bmp; do
  [ -f "$written" ] || continue
  meant=${written%.bmp}.ppm
  differ=$("$compare" -metric AE "$written" "$meant" null: 2>&1) || true
  if [ "$differ" != 0 ]; then
    echo "compare-written: $written differs from $meant in $differ pixels" >&2
    exit 1
  fi
  count=$((count + 1))
done
[ "$count" -gt 0 ] || { echo "compare-written: no pictures in $dir" >&2; exit 1; }
echo "compare-written: $count pictures read back by ImageMagick as meant"
