#!/bin/sh
# Renders svg/*.svg into the program's pictures: NAME.jpg at 1x and NAME@2x.jpg at twice the pixels. The report's
# title pictures become one transparent PNG each, at twice the size the page shows them.
# Needs rsvg-convert (librsvg2-bin), ImageMagick 6 and fonts-inter.
# Usage: make_pictures.sh [OUTDIR]   (default: the imgs directory of data)
set -eu
here=$(cd "$(dirname "$0")" && pwd)
out=${1:-"$here/../data/imgs"}
mkdir -p "$out"
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

for s in "$here"/svg/*.svg; do
    n=$(basename "$s" .svg)
    case $n in
    report_title01 | title_project_details | title_exp_summary)
        rsvg-convert -z 2 "$s" -o "$tmp/p.png"
        convert-im6.q16 "$tmp/p.png" -strip -define png:exclude-chunks=date,time,tIME,tEXt,zTXt "PNG32:$out/$n.png"
        continue
        ;;
    bg_report01)
        # The page stretches this one itself, so there is no second size.
        scales=1
        ;;
    *)
        scales="1 2"
        ;;
    esac
    for z in $scales; do
        if [ "$z" = 2 ]; then sfx=@2x; else sfx=; fi
        rsvg-convert -z "$z" "$s" -o "$tmp/p.png"
        # Text and thin lines stay crisp only without chroma subsampling; -strip keeps a rerun byte for byte the same.
        convert-im6.q16 "$tmp/p.png" -background white -flatten -strip \
            -sampling-factor 1x1 -quality 94 "$out/$n$sfx.jpg"
    done
done
