#!/usr/bin/env bash
# Installs what BUILD_DIR holds, plays it, changes things as a user would, installs again, adds it to a menu, uninstalls
# it, and does the same with the archive. Usage: install_test.sh SOURCE_DIR BUILD_DIR
set -eu
source=$(cd "$1" && pwd)
build=$(cd "$2" && pwd)
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
export HOME="$tmp/home of a user"
unset XDG_DATA_HOME DESTDIR
entry=$HOME/.local/share/applications/ferncastle.desktop
folder="$tmp/with a blank/Ferncastle"

fail() {
  echo "install_test: $1" >&2
  exit 1
}
install_it() { cmake --install "$build" --prefix "$folder" >"$tmp/said"; }
files_of() { (cd "$1" && find . ! -type d | LC_ALL=C sort); }
holds() { grep -qF -- "$2" "$1" || fail "$1 doesn't hold: $2"; }
same() { cmp -s "$1" "$2" || fail "$1 isn't $2"; }
gone() { [ ! -e "$1" ] || fail "still there: $1"; }
play_in() {
  "$1/ferncastle-play" --drive s="$1" "$1/newcomer.play" >"$tmp/played" || fail "the sample can't be expanded in $1"
  holds "$1/0001_store/report.html" fernandfriends
}
# What a menu does with an entry: takes back the backslashes, drops %f and the like, takes back %%, and runs the rest.
start_from_menu() {
  ! command -v desktop-file-validate >/dev/null || desktop-file-validate "$entry" || fail "the entry isn't valid"
  local command
  # shellcheck disable=SC2162
  read command <<<"$(sed -n "/^\[${1:-Desktop Entry}\]/,/^Exec=/s/^Exec=//p" "$entry")"
  eval "set -- $(sed 's/%%/\x01/g; s/%[a-zA-Z]//g; s/\x01/%/g' <<<"$command")"
  case $1 in *[%=]*) fail "desktops can't find a program of this name: $1" ;; esac
  "$@" || fail "the entry doesn't start the program: $command"
}

# ---- a first installation ----
mkdir -p "$HOME"
cmake -G Ninja -S "$source" -B "$tmp/plain" -DFERNCASTLE_TESTS=OFF -DFERNCASTLE_DESKTOP=OFF >/dev/null
holds "$tmp/plain/CMakeCache.txt" "CMAKE_INSTALL_PREFIX:PATH=$HOME/Ferncastle"

mkdir -p "$folder"
echo "a letter" >"$folder/letter.txt"
! install_it 2>/dev/null || fail "it installs among other things"
[ "$(files_of "$folder")" = ./letter.txt ] || fail "a refused installation leaves files"
rm "$folder/letter.txt"

install_it
files_of "$folder" >"$tmp/installed"
(cd "$folder" && sha256sum --quiet --check installed-files.txt) || fail "the list isn't true"
! diff -rq --exclude=README.md "$source/data" "$folder" | grep -v "^Only in $folder" || fail "data is missing or differs"
same "$folder/README.md" "$source/README.md"
gone "$build/ferncastle/README.md"
play_in "$folder"
version=$("$folder/ferncastle-play" --version)
version=${version#ferncastle-play }
holds "$build/CMakeCache.txt" "CMAKE_PROJECT_VERSION:STATIC=${version%%[A-Z]*}"
holds "$tmp/said" "Ferncastle $version is in"

# ---- the user changes things; the same and then a newer version is installed ----
echo "mine.example" >>"$folder/domains.lst"
echo "|||Mine|||1" >>"$folder/variables.sav"
echo "my picture" >"$folder/imgs/mine.jpg"
rm "$folder/imgs/title.jpg"
cp -r "$folder/0001" "$folder/0001_store" "$tmp"
install_it
holds "$folder/domains.lst" mine.example
holds "$folder/variables.sav" Mine
holds "$tmp/said" domains.lst
gone "$folder/domains.lst.new"
same "$folder/imgs/title.jpg" "$source/data/imgs/title.jpg"

cp -r "$source/data" "$tmp/newer"
echo "newer.example" >>"$tmp/newer/domains.lst"
echo "newword" >>"$tmp/newer/dictionary.lst"
rm "$tmp/newer/sample/notes.txt"
programs=$(cd "$folder" && printf '%s;' ferncastle*)
scripts=$(find "$source/packaging" -maxdepth 1 -type f -printf '%p;')
cmake -Dfolder="$folder" -Dversion=2 -Ddata="$tmp/newer" -Dreadme="$source/README.md" -Dprograms="${programs%;}" \
  -Dscripts="${scripts%;}" -P "$source/cmake/fill_folder.cmake" >"$tmp/said"
holds "$folder/domains.lst" mine.example
same "$folder/domains.lst.new" "$tmp/newer/domains.lst"
holds "$tmp/said" domains.lst.new
same "$folder/dictionary.lst" "$tmp/newer/dictionary.lst"
gone "$folder/sample/notes.txt"
for _ in once "and again"; do
  install_it
  same "$folder/dictionary.lst" "$source/data/dictionary.lst"
  same "$folder/domains.lst.new" "$source/data/domains.lst"
done
diff -r "$tmp/0001" "$folder/0001" && diff -r "$tmp/0001_store" "$folder/0001_store" || fail "a project was touched"

# ---- the menu: hard names, a folder that moves, two folders ----
hard="$tmp/It's \"50\" \$HOME \`ls\` \\b"
moved="$tmp/100%f =x"
mkdir "$hard"
cp -r "$folder/add-to-menu" "$folder/open-report" "$folder/icons" "$hard"
# Of three projects the second was run last, and the third has no report. A stand-in for the user's browser notes what it
# opens.
mkdir "$hard/0001_store" "$hard/0002_store" "$hard/0003_store" "$tmp/bin"
touch -d '2 hours ago' "$hard/0001_store/report.html"
touch "$hard/0002_store/report.html"
# shellcheck disable=SC2016
printf '#!/bin/sh\nprintf "%%s\\n" "$1" >"%s/opened"\n' "$tmp" >"$tmp/bin/xdg-open"
chmod +x "$tmp/bin/xdg-open"
PATH=$tmp/bin:$PATH
opened() { [ "$(cat "$tmp/opened")" = "$1" ] || fail "open-report opens $(cat "$tmp/opened")"; }
cat >"$hard/ferncastle" <<PROGRAM
#!/bin/sh
printf '%s\n' "\$0" >"$tmp/started"
PROGRAM
chmod +x "$hard/ferncastle"
for place in "$hard" "$moved"; do
  [ -d "$place" ] || mv "$hard" "$place"
  "$place/add-to-menu" >/dev/null
  start_from_menu
  [ "$(cat "$tmp/started")" = "$place/ferncastle" ] || fail "the entry starts $(cat "$tmp/started")"
  start_from_menu "Desktop Action OpenReport"
  opened "$place/0002_store/report.html"
  "$place/open-report" 1
  opened "$place/0001_store/report.html"
  ! "$place/open-report" 0003 2>"$tmp/said" || fail "it opens a report that isn't there"
  holds "$tmp/said" "project 0003 has no report"
done
for side in 16 24 32 48 64 128 256; do
  same "$HOME/.local/share/icons/hicolor/${side}x$side/apps/ferncastle.png" "$source/data/icons/ferncastle-$side.png"
done

# ---- uninstalling: ways out of the folder, the entry of another folder, no answer ----
stub=""
[ -e "$folder/ferncastle" ] || { cp "$moved/ferncastle" "$folder" && stub=ferncastle; }
mv "$folder/sample" "$tmp/elsewhere"
ln -s "$tmp/elsewhere" "$folder/sample"
mv "$folder/Indexes.lst" "$tmp/Indexes.lst"
ln -s "$tmp/Indexes.lst" "$folder/Indexes.lst"
cp "$source/data/domains.lst" "$tmp/with a blank/outside"
sum=$(sha256sum <"$tmp/with a blank/outside" | cut -d' ' -f1)
printf '%s\n' "$sum  ../outside" "$sum  imgs/../../outside" "$sum  $tmp/with a blank/outside" \
  >>"$folder/installed-files.txt"

files_of "$folder" >"$tmp/before"
! "$folder/uninstall" </dev/null >/dev/null || fail "it uninstalls without an answer"
files_of "$folder" | diff "$tmp/before" - || fail "it removes files without an answer"
echo y | "$folder/uninstall" >"$tmp/said" || fail "it doesn't uninstall"
{
  (cd "$tmp" && find ./0001 ./0001_store ! -type d)
  printf './%s\n' $stub Indexes.lst domains.lst imgs/mine.jpg sample variables.sav
} | LC_ALL=C sort >"$tmp/users"
files_of "$folder" | diff "$tmp/users" - || fail "what is left isn't what is the user's"
gone "$folder/fonts"
for name in 0001 0001_store domains.lst imgs variables.sav; do holds "$tmp/said" "  $name"; done
diff -r "$source/data/sample" "$tmp/elsewhere" && same "$tmp/Indexes.lst" "$source/data/Indexes.lst" &&
  same "$tmp/with a blank/outside" "$source/data/domains.lst" || fail "it removes files outside of the folder"
start_from_menu
install_it
holds "$folder/domains.lst" mine.example

# ---- the archive: the same files, it plays, and goes but for what is the user's ----
(cd "$build" && cpack -B "$tmp/packed" >/dev/null)
mkdir "$tmp/un packed"
tar -C "$tmp/un packed" -xzf "$tmp/packed/"ferncastle-"$version-$(uname -s)-$(uname -m)".tar.gz
folder=$(echo "$tmp/un packed/"*)
files_of "$folder" | diff "$tmp/installed" - || fail "the archive holds other files than the installation"
play_in "$folder"
export XDG_DATA_HOME="$tmp/share"
entry=$XDG_DATA_HOME/applications/ferncastle.desktop
[ -e "$folder/ferncastle" ] || cp "$moved/ferncastle" "$folder"
"$folder/add-to-menu" >/dev/null
holds "$entry" "Exec=\"$folder/ferncastle\""
"$folder/uninstall" --yes >/dev/null
[ -z "$(find "$XDG_DATA_HOME" -type f)" ] || fail "the entry or its icons stay"
rm -f "$folder/ferncastle"
left=$(cd "$folder" && echo ./*)
[ "$left" = "./0001 ./0001_store ./variables.sav" ] || fail "the archive's folder is left with $left"
echo "install_test: all as it should be"
