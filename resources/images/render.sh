#!/bin/sh
# Redraws the library's PNG images from their SVG sources in src/: each at
# its own size (name.png) and at twice that size (name@2x.png), the picture
# Qt takes on screens scaled above 100 %. The PNGs are committed, so a
# normal build does not need this; run it (or `make images`) after editing
# an SVG. Needs rsvg-convert (librsvg2-bin).
set -eu
cd "$(dirname "$0")"
for svg in src/*.svg; do
    name=$(basename "$svg" .svg)
    rsvg-convert --format=png --output="$name.png" "$svg"
    rsvg-convert --format=png --zoom=2 --output="$name@2x.png" "$svg"
done
