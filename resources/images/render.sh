#!/bin/sh
# Redraws the library's PNG images from their SVG sources in src/.
# The PNGs are committed, so a normal build does not need this; run it
# (or `make images`) after editing an SVG. Needs rsvg-convert (librsvg2-bin).
set -eu
cd "$(dirname "$0")"
for svg in src/*.svg; do
    name=$(basename "$svg" .svg)
    rsvg-convert --format=png --output="$name.png" "$svg"
done
