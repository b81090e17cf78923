#!/bin/sh
# Writes the picture files that the image tests read, all made and decoded by
# ImageMagick: BMP3 files at 1, 4, 8 and 24 bits with odd widths, each also
# turned top-down, and beside every file ImageMagick's own decoding of it as
# a plain PPM. The top-down files are the same files with the rows reversed
# and the height negated, since ImageMagick writes bottom-up only; what they
# hold is then read back by ImageMagick itself, not taken on trust.
set -eu
out=$1
convert=/usr/bin/convert
[ -x "$convert" ] || convert=convert
"$convert" -version | grep -q ImageMagick || {
  echo "make-fixtures: ImageMagick's convert is needed (apt-get install imagemagick)" >&2
  exit 1
}
mkdir -p "$out"

# name, size, ImageMagick's picture and options
while read -r name size picture options; do
  # shellcheck disable=SC2086
  "$convert" -size "$size" $picture $options +dither -compress None BMP3:"$out/$name.bmp"
  perl -e '
    local $/; open(my $in, "<:raw", $ARGV[0]) or die; my $d = <$in>;
    my ($offset) = unpack("V", substr($d, 10, 4));
    my ($width, $height) = unpack("l<l<", substr($d, 18, 8));
    my ($depth) = unpack("v", substr($d, 28, 2));
    my $stride = int(($width * $depth + 31) / 32) * 4;
    my @rows = map { substr($d, $offset + $_ * $stride, $stride) } 0 .. $height - 1;
    substr($d, 22, 4) = pack("l<", -$height);
    substr($d, $offset, $stride * $height) = join("", reverse @rows);
    open(my $o, ">:raw", $ARGV[1]) or die; print $o $d;
  ' "$out/$name.bmp" "$out/$name-top.bmp"
  for file in "$name" "$name-top"; do
    "$convert" "$out/$file.bmp" -depth 8 ppm:"$out/$file.ppm"
  done
done <<'CASES'
mono13 13x7 gradient:red-blue -colors 2 -type Palette
mono33 33x5 gradient:white-black -colors 2 -type Palette
pal16 17x9 gradient:yellow-navy -colors 16 -type Palette
pal256 37x23 -seed 7 plasma:fractal -colors 150 -type Palette
rgb13 13x7 gradient:red-blue -type TrueColor
rgb30 30x11 -seed 3 plasma:fractal -type TrueColor
CASES
touch "$out/made"
