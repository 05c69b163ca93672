#!/bin/sh
# Renders svg/*.svg into the program's pictures: NAME.jpg at 1x and NAME@2x.jpg at twice the pixels. The report's
# title pictures become one transparent PNG each, at twice the size the page shows them. The drawings of the program's
# icon become icons/ferncastle-SIDE.png, transparent too.
# Needs rsvg-convert (librsvg2-bin), ImageMagick 6 and fonts-inter.
# Usage: make_pictures.sh [OUTDIR]   (default: data; what is made goes to its imgs and icons)
set -eu
here=$(cd "$(dirname "$0")" && pwd)
data=${1:-"$here/../data"}
out=$data/imgs
mkdir -p "$out" "$data/icons"
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

# -strip and the excluded chunks keep a rerun byte for byte the same.
clear_png() {
    convert-im6.q16 "$1" -strip -define png:exclude-chunks=date,time,tIME,tEXt,zTXt "PNG32:$2"
}

for s in "$here"/svg/*.svg; do
    n=$(basename "$s" .svg)
    case $n in
    report_title01 | title_project_details | title_exp_summary)
        rsvg-convert -z 2 "$s" -o "$tmp/p.png"
        clear_png "$tmp/p.png" "$out/$n.png"
        continue
        ;;
    icon*)
        # icon16 and its like are drawn for that size alone.
        for side in $(if [ "$n" = icon ]; then echo 64 128 256; else echo "${n#icon}"; fi); do
            rsvg-convert -w "$side" -h "$side" "$s" -o "$tmp/p.png"
            clear_png "$tmp/p.png" "$data/icons/ferncastle-$side.png"
        done
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
        # Text and thin lines stay crisp only without chroma subsampling.
        convert-im6.q16 "$tmp/p.png" -background white -flatten -strip \
            -sampling-factor 1x1 -quality 94 "$out/$n$sfx.jpg"
    done
done
