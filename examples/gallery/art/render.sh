#!/bin/sh
# Redraws the gallery's own pictures from the SVG sources here: the sprite
# sheets embedded in its resources (../sheets) and the files of its "images"
# folder (../images). Each sheet also gets its @2x twin, which the slice
# catalogue takes on screens scaled above 100 %. The PNGs are committed; run
# this after editing an SVG.
# Needs rsvg-convert (librsvg2-bin).
set -eu
cd "$(dirname "$0")"
for name in icons buttons hearts banner; do
    rsvg-convert --format=png --output="../sheets/$name.png" "$name.svg"
    rsvg-convert --format=png --zoom=2 --output="../sheets/$name@2x.png" "$name.svg"
done
for name in AppIcon cover_default frames; do
    rsvg-convert --format=png --output="../images/$name.png" "$name.svg"
done
