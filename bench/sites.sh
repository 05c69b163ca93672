# The sites that are measured, and a disk for the measuring; run and window read this. "here" is the directory of bench.
cache=${XDG_CACHE_HOME:-$HOME/.cache}/ferncastle-bench
mkdir -p "$cache"

# Real documentation sites, by the package that holds them and the directory therein.
site_of() {
  case $1 in
    libqhull) echo libqhull-doc usr/share/doc/libqhull-dev/qhull ;;
    mh-book)  echo mh-book usr/share/doc/mh-book/html ;;
    db5.3)    echo db5.3-doc usr/share/doc/db5.3-doc ;;
    *) echo "no such site: $1" >&2; exit 2 ;;
  esac
}

fetch() {
  [ -d "$cache/$1" ] && return
  read -r package root <<<"$(site_of "$1")"
  unpacked=$(mktemp -d)
  (cd "$unpacked" && apt-get -qq download "$package" 2>/dev/null && dpkg -x "$package"_*.deb tree)
  # Links out of the site are left behind; those within it become files.
  find "$unpacked/tree" -type l -lname '/*' -delete
  cp -rL "$unpacked/tree/$root" "$cache/$1" 2>/dev/null || true
  rm -rf "$unpacked"
}

# make_site DIR PAGES: pages of 25 links each to others, in ten directories.
make_site() {
  [ -d "$1" ] && return
  for d in 0 1 2 3 4 5 6 7 8 9; do mkdir -p "$1/d$d"; done
  awk -v dir="$1" -v pages="$2" 'BEGIN {
    for (p = 0; p < pages; p++) {
      file = dir "/d" p % 10 "/p" p ".htm"
      printf "<html><head><title>Page %d</title></head><body>\n", p > file
      for (l = 0; l < 25; l++) {
        t = (p * 31 + l * 7) % pages
        printf "<p>Some words between the links of this page, as there would be.</p>\n<a href=\"/d%d/p%d.htm\">%d</a>\n", t % 10, t, t > file
      }
      print "</body></html>" > file; close(file)
    } }'
}

# Reads a site once, so that no run reads it from the disk.
warm() { find "$1" -type f -exec cat {} + >/dev/null; }

# A place to measure in: as root a fresh journalled file system in a sparse file, since what an earlier run left or
# deleted spoils the figures elsewhere. fresh_disk takes the one before away.
work=$(mktemp -d)
image=
drop_disk() {
  if [ -n "$image" ]; then umount "$work"; rm -f "$image"; image=; else rm -rf "${work:?}"/*; fi
}
fresh_disk() {
  drop_disk
  [ "$(id -u)" = 0 ] || return 0
  image=$(mktemp -p "$cache" image.XXXXXX)
  truncate -s 30G "$image"
  mkfs.ext4 -q -F "$image"
  mount -o loop "$image" "$work" || { rm "$image"; image=; }
}
at_end() { drop_disk; rm -rf "$work"; }
trap at_end EXIT

median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
