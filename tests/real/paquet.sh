#!/usr/bin/env bash
# Builds the Debian package and follows it through a bare system of its own: installed with what it
# needs and nothing else, started for the first and the second time. Ends with 77 where that cannot
# be done: it takes root, debootstrap, and mounts of one's own.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
PATH=$PATH:/usr/sbin:/sbin
fail() { echo "paquet.sh: $1" >&2; exit "${2:-1}"; }
((EUID == 0)) || fail 'skipped: only root can lay a system' 77
command -v debootstrap >/dev/null || fail 'skipped: debootstrap is not installed' 77
unshare --mount true 2>/dev/null || fail 'skipped: no mounts of our own here' 77
[[ ${1-} == --mounts-apart ]] || exec unshare --mount "$0" --mounts-apart

folder=$(mktemp -d "${TMPDIR:-/var/tmp}/velmira-paquet.XXXXXX")
system=$folder/system
finish() {
  jobs -p | xargs -r kill 2>/dev/null || true
  umount "$system/proc" 2>/dev/null || true
  rm -rf --one-file-system "$folder" # never through a mount that has stayed
}
trap finish EXIT

wait_for() { # COMMAND...: true as soon as it succeeds
  local end=$((SECONDS + 30))
  until "$@"; do ((SECONDS < end)) && sleep 0.2 || return; done
}
inside() { # COMMAND...: in the system, as root
  chroot "$system" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive http_proxy="${http_proxy-}" "$@"
}

# The user's own place for data has a blank and an accent in its name.
home=/home/essai data="/home/essai/mes données" base=/home/essai/Velmiras
settings=$system$data/Velmira delivered=$system/usr/share/velmira
start() { # VARIABLE=VALUE...: the program, as the user
  chroot --userspec=essai "$system" /usr/bin/env -i PATH=/usr/bin:/bin LANG=C.UTF-8 HOME="$home" \
    XDG_DATA_HOME="$data" XDG_RUNTIME_DIR="$home/run" "$@" velmira >"$folder/log" 2>&1 &
  program=$!
}
# What an off-screen platform or a screen without a window manager cannot do is no fault.
check_silence() { ! grep -v 'This plugin does not support' "$folder/log" || fail 'it complains'; }
is_filled() {
  [[ -s $settings/Installation.cfg ]] &&
    diff -rq --exclude=Installation.cfg "$delivered" "$settings" >"$folder/missing"
}

package=$("$root/script/package")
debootstrap --variant=minbase bookworm "$system" >"$folder/laid.log" 2>&1 ||
  fail "the system cannot be laid: $(tail -n 20 "$folder/laid.log")"
mountpoint -q "$system/proc" || mount -t proc proc "$system/proc"
inside useradd --create-home --shell /bin/sh essai
inside install -d -o essai -m 700 "$home/run" "$base"

echo '--- installed'
cp "$package" "$system/tmp/velmira.deb"
inside apt-get update -q
inside apt-get install -q -y --no-install-recommends /tmp/velmira.deb
[[ -e $system/usr/share/icons/breeze/index.theme ]] || fail 'parts are missing'
status=0
inside /usr/libexec/velmira/velmira-jet /etc/passwd Adresse || status=$?
((status == 1)) || fail "the reader of older databases ends with $status" # 1: no database

echo '--- first start: it fills its own folder, and asks for the data folder'
start QT_QPA_PLATFORM=offscreen
wait_for is_filled || fail "$(<"$folder/missing") $(<"$folder/log")"
kill "$program" || fail 'the program has not waited for an answer'
check_silence

echo '--- second start: the data folder is known'
printf '"%s"\r\n' "$base" >"$settings/CheminData.cfg"
Xvfb -displayfd 3 -screen 0 1400x1000x24 -nolisten tcp 3>"$folder/display" 2>/dev/null &
wait_for test -s "$folder/display" || fail 'the virtual screen does not start'
DISPLAY=:$(<"$folder/display")
export DISPLAY
start QT_QPA_PLATFORM=xcb DISPLAY="$DISPLAY"
window=$(wait_for xdotool search --onlyvisible --name 'Velmiras de') ||
  fail "the directory does not appear: $(<"$folder/log")"
for part in libqsqlite.so libqsvgicon.so qtbase_fr.qm; do # loaded by name
  grep -q "$part" "/proc/$program/maps" || fail "$part is not in use"
done
xdotool windowfocus --sync "${window%%$'\n'*}" key ctrl+q
wait "$program" || fail "the program ended with $?"
check_silence
[[ $(head -c 15 "$system$base/Velmira.mdb") == 'SQLite format 3' ]] || fail 'no database'
[[ ! -e $settings/Velmira_base.mdb ]] || fail 'an empty database stays with the settings'
