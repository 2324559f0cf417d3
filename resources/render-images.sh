#!/usr/bin/env bash
# Renders images/*.svg, the sources of the icons, to the PNGs that application.qrc packs.
# Needs rsvg-convert (Debian: librsvg2-bin). Run it after a change of an SVG and commit both.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/images"

command -v rsvg-convert > /dev/null || {
    echo "render-images.sh: rsvg-convert not found; install the package librsvg2-bin" >&2
    exit 1
}

for source in *.svg; do
    name=${source%.svg}
    size=64                                # icons of actions
    [[ $name != kinetra ]] || size=256     # icon of the application
    rsvg-convert --width "$size" --height "$size" --output "$name.png" "$source"
done
