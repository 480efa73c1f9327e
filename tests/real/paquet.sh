#!/usr/bin/env bash
# Builds the Debian package and follows it through a bare system of its own: installed with what it
# needs and nothing else, started for the first and the second time, upgraded, removed. Ends with 77
# where that cannot be done: it takes root, debootstrap, and mounts of one's own.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
PATH=$PATH:/usr/sbin:/sbin

skip() {
  echo "paquet.sh: skipped: $1" >&2
  exit 77
}
fail() {
  echo "paquet.sh: $1" >&2
  exit 1
}

((EUID == 0)) || skip 'only root can lay a system'
command -v debootstrap >/dev/null || skip 'debootstrap is not installed'
if [[ ${1-} != --mounts-apart ]]; then
  unshare --mount true 2>/dev/null || skip 'no mounts of our own here'
  exec unshare --mount "$0" --mounts-apart
fi

folder=$(mktemp -d "${TMPDIR:-/var/tmp}/velmira-paquet.XXXXXX")
system=$folder/system
program='' screen=''

end_of() { # PROCESS
  [[ -z $1 ]] || { kill "$1" && wait "$1"; } 2>/dev/null || true
}
finish() {
  local status=$?
  end_of "$program"
  end_of "$screen"
  umount "$system/proc" 2>/dev/null || true
  # Never through a mount that has stayed.
  rm -rf --one-file-system "$folder"
  exit "$status"
}
trap finish EXIT
trap 'exit 130' INT TERM

# wait_for COMMAND...: true as soon as the command succeeds, within half a minute.
wait_for() {
  local end=$((SECONDS + 30))
  until "$@"; do
    ((SECONDS < end)) || return 1
    sleep 0.2
  done
}

inside() { # COMMAND...: in the system, as root
  chroot "$system" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive http_proxy="${http_proxy-}" "$@"
}

# The user's own place for data has a blank and an accent in its name.
home=/home/essai
data="$home/mes données"
settings=$system$data/Velmira

start() { # VARIABLE=VALUE...: the program, as the user
  chroot --userspec=essai "$system" /usr/bin/env -i PATH=/usr/bin:/bin LANG=C.UTF-8 HOME="$home" \
    XDG_DATA_HOME="$data" XDG_RUNTIME_DIR="$home/run" "$@" velmira \
    >"$folder/program.log" 2>&1 &
  program=$!
}

# What the program said of itself or of a part that it lacks. The off-screen platform, and a screen
# without a window manager, say themselves what they cannot do.
is_silent() {
  ! grep -v 'This plugin does not support' "$folder/program.log" >&2
}

# What of the program lies in the system, the administrator's part and the package manager's records
# included.
traces() {
  find "$system"/{etc,opt,srv,usr,var} -iname '*velmira*' -not -path '*/var/cache/*'
}

# State of everything that belongs to the user.
state() {
  (cd "$system$home" && find . -type f -print0 | sort -z | xargs -0 sha256sum)
}

is_filled() { # The user's folder: with all that is delivered, and its mark
  [[ -s $settings/Installation.cfg ]] &&
    diff -rq --exclude=Installation.cfg "$delivered" "$settings" >/dev/null
}

is_loaded() { # PART: the running program has it in memory
  grep -q "$1" "/proc/$program/maps"
}

window() { # NAME: its number on the screen
  xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1
}
is_shown() { [[ -n $(window "$1") ]]; }
has_ended() { ! kill -0 "$program" 2>/dev/null; }

# A start with a known data folder, on the screen, ended by the user.
work_and_quit() {
  start QT_QPA_PLATFORM=xcb DISPLAY="$DISPLAY"
  wait_for is_shown 'Velmiras de' || {
    cat "$folder/program.log" >&2
    fail 'the directory does not appear'
  }
  local part
  for part in libqsqlite.so libqsvgicon.so qtbase_fr.qm; do
    is_loaded "$part" || fail "$part is not in use"
  done
  xdotool windowfocus "$(window 'Velmiras de')"
  sleep 0.5
  xdotool key ctrl+q
  wait_for has_ended || fail 'the program does not close'
  wait "$program" || fail "the program ended with $?"
  program=''
  is_silent || fail 'the program complains'
}

package=$("$root/script/package")

debootstrap --variant=minbase bookworm "$system" >"$folder/debootstrap.log" 2>&1 || {
  tail -n 20 "$folder/debootstrap.log" >&2
  fail 'the system cannot be laid'
}
mountpoint -q "$system/proc" || mount -t proc proc "$system/proc"
inside useradd --create-home --shell /bin/sh essai
inside install -d -o essai -m 700 "$home/run"

echo '--- installed'
cp "$package" "$system/tmp/velmira.deb"
inside apt-get update -q
inside apt-get install -q -y --no-install-recommends /tmp/velmira.deb
[[ -n $(traces) ]] || fail 'nothing has been installed'
[[ -e $system/usr/share/icons/breeze/index.theme ]] || fail "the buttons' pictures are not there"
delivered=$system/usr/share/velmira

echo '--- first start: it asks for the data folder, and has filled its own before'
start QT_QPA_PLATFORM=offscreen
wait_for is_filled || {
  cat "$folder/program.log" >&2
  diff -rq "$delivered" "$settings" >&2 || true
  fail 'the folder of the settings has not been filled'
}
sleep 2
has_ended && fail 'the program has not waited for an answer'
end_of "$program"
program=''
is_silent || fail 'the program complains'

echo '--- second start: the data folder is known'
base=$home/DataTrevona/DataVelmira
inside install -d -o essai "$home/DataTrevona" "$base"
printf '"%s"\r\n' "$base" >"$settings/CheminData.cfg"
Xvfb -displayfd 3 -screen 0 1400x1000x24 -nolisten tcp 3>"$folder/display" 2>/dev/null &
screen=$!
wait_for test -s "$folder/display" || fail 'the virtual screen does not start'
DISPLAY=:$(<"$folder/display")
export DISPLAY
work_and_quit
[[ $(head -c 15 "$system$base/Velmira.mdb") == 'SQLite format 3' ]] ||
  fail 'the database is not in the data folder'
[[ ! -e $settings/Velmira_base.mdb ]] || fail 'the empty database has stayed with the settings'

echo '--- upgraded: a delivered file has changed, another is no longer there'
dpkg-deb -R "$package" "$folder/higher"
sed -i 's/^Version: .*/&+essai/' "$folder/higher/DEBIAN/control"
echo 'Sa Sainteté' >>"$folder/higher/usr/share/velmira/Civilite.txt"
rm "$folder/higher/usr/share/velmira/Alerte.txt"
rm -f "$folder/higher/DEBIAN/md5sums"
dpkg-deb --root-owner-group -b "$folder/higher" "$system/tmp/higher.deb" >/dev/null
echo 'À moi' >"$settings/Civilite.txt"
before=$(state)
inside apt-get install -q -y --no-install-recommends /tmp/higher.deb
[[ $(inside dpkg-query -W velmira) == *+essai ]] || fail 'it is the old version still'
grep -q 'Sa Sainteté' "$delivered/Civilite.txt" || fail 'the delivered file is the old one still'
[[ ! -e $delivered/Alerte.txt ]] || fail 'a file of the old version has stayed'
[[ $(state) == "$before" ]] || fail "the upgrade has changed the user's files"
work_and_quit
[[ $(<"$settings/Civilite.txt") == 'À moi' ]] || fail "the user's titles have gone"
[[ ! -e $settings/Velmira_base.mdb ]] || fail 'the empty database has been laid again'

echo '--- removed'
before=$(state)
inside apt-get purge -q -y velmira
[[ -z $(traces) ]] || fail "left behind: $(traces)"
[[ $(state) == "$before" ]] || fail "the removal has changed the user's files"
