#!/usr/bin/env bash
# Runs a command beside a print server and a virtual printer of its own, and takes both down again.
# Fails where they cannot be had.
#
#   avec_cups.sh COMMAND [ARGUMENT...]
#
# The command finds in its environment
#   CUPS_SERVER          the server, where every program that prints looks for it
#   VELMIRA_IMPRIMANTE   the name of its one queue, which is the default one
#   VELMIRA_URI          the printer behind it
#   VELMIRA_RECU         the folder in which the printer leaves each document that it gets
#
# The printer takes A4, and its four margins differ: top 5 mm, right 7, bottom 12, left 3.
set -euo pipefail
(($#)) || {
  echo 'usage: avec_cups.sh COMMAND [ARGUMENT...]' >&2
  exit 2
}

PATH=$PATH:/usr/sbin:/sbin

# A server that root starts runs its filters under another account, which must get there; and the
# path of a socket may not be long.
folder=$(mktemp -d /tmp/velmira-cups.XXXXXX)
chmod 755 "$folder"
bus='' printer='' server='' command=''

finish() {
  local status=$? process log
  trap - EXIT
  trap '' HUP INT TERM
  for process in $command $server $printer $bus; do kill "$process" 2>/dev/null || true; done
  for process in $command $server $printer $bus; do wait "$process" 2>/dev/null || true; done
  if ((status)); then
    for log in bus printer server; do
      [[ -f $folder/$log.log ]] || continue
      echo "--- $log, the last lines" >&2
      tail -n 40 "$folder/$log.log" >&2
    done
  fi
  rm -rf "$folder"
  exit "$status"
}
trap finish EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

fail() {
  echo "avec_cups.sh: $*" >&2
  exit 1
}

# until_ready PROCESS COMMAND...: waits for the command to succeed; fails when the process ends.
until_ready() {
  local process=$1 limit=$((SECONDS + 60))
  shift
  until "$@" >/dev/null 2>&1; do
    kill -0 "$process" 2>/dev/null || return 1
    ((SECONDS < limit)) || return 1
    sleep 0.05
  done
}

size='{
    MEMBER integer x-dimension 21000
    MEMBER integer y-dimension 29700
  }'
sheet="{
  MEMBER collection media-size $size
  MEMBER keyword media-size-name iso_a4_210x297mm
  MEMBER integer media-top-margin 500
  MEMBER integer media-right-margin 700
  MEMBER integer media-bottom-margin 1200
  MEMBER integer media-left-margin 300
  MEMBER keyword media-source main
  MEMBER keyword media-type stationery
}"
cat >"$folder/printer.conf" <<END
ATTR textWithoutLanguage printer-make-and-model "Essai"
ATTR mimeMediaType document-format-supported application/octet-stream,application/pdf
ATTR mimeMediaType document-format-default application/octet-stream
ATTR keyword media-supported iso_a4_210x297mm
ATTR keyword media-default iso_a4_210x297mm
ATTR keyword media-ready iso_a4_210x297mm
ATTR collection media-size-supported $size
ATTR integer media-top-margin-supported 500
ATTR integer media-right-margin-supported 700
ATTR integer media-bottom-margin-supported 1200
ATTR integer media-left-margin-supported 300
ATTR keyword media-source-supported main
ATTR keyword media-type-supported stationery
ATTR collection media-col-database $sheet
ATTR collection media-col-default $sheet
ATTR collection media-col-ready $sheet
ATTR enum orientation-requested-supported 3,4,5,6
ATTR enum orientation-requested-default 3
ATTR resolution printer-resolution-supported 600dpi
ATTR resolution printer-resolution-default 600dpi
ATTR boolean color-supported false
ATTR keyword print-color-mode-supported monochrome
ATTR keyword print-color-mode-default monochrome
ATTR enum print-quality-supported 4
ATTR enum print-quality-default 4
ATTR keyword sides-supported one-sided
ATTR keyword sides-default one-sided
ATTR rangeOfInteger copies-supported 1-9
ATTR integer copies-default 1
END
mkdir "$folder"/{received,keys}

# The printer starts only where a system bus is. This one is its own, and empty.
dbus-daemon --session --nofork --nopidfile --address="unix:path=$folder/bus" \
  >"$folder/bus.log" 2>&1 &
bus=$!
until_ready "$bus" test -S "$folder/bus" || fail 'the message bus does not start'
bus_address=unix:path=$folder/bus

# Given this machine's own address it listens at that alone, but starts only where both ::1 and
# 127.0.0.1 exist. A container without the former has no way to keep it in.
address=(-n localhost)
grep -qs ' lo$' /proc/net/if_inet6 || address=()

# A free port cannot be asked for and handed on: where it is taken the printer ends at once. It
# says its identity when it listens. Without a command for its pages it would feign to print for
# seconds.
for try in {1..20}; do
  port=$((20000 + RANDOM % 12000))
  DBUS_SYSTEM_BUS_ADDRESS=$bus_address \
    ippeveprinter -v -r off "${address[@]}" -p "$port" -a "$folder/printer.conf" \
    -K "$folder/keys" -k -d "$folder/received" -c /bin/true Enveloppes \
    >"$folder/printer.log" 2>&1 &
  printer=$!
  if until_ready "$printer" grep -q '^printer-uuid=' "$folder/printer.log"; then break; fi
  if kill -0 "$printer" 2>/dev/null || ((try == 20)); then fail 'the printer does not start'; fi
done
uri=ipp://localhost:$port/ipp/print

account=$(id -un) group=$(id -gn)
if ((EUID == 0)); then account=lp group=lp; fi
mkdir "$folder"/{server,cache,state,spool,spool/tmp,html}
cat >"$folder/server/cups-files.conf" <<END
User $account
Group $group
SystemGroup root
ServerRoot $folder/server
CacheDir $folder/cache
StateDir $folder/state
RequestRoot $folder/spool
TempDir $folder/spool/tmp
DocumentRoot $folder/html
ServerKeychain $folder/keys
AccessLog $folder/access.log
PageLog $folder/page.log
ErrorLog $folder/server.log
Printcap $folder/printcap
Sandboxing relaxed
END
# Over a socket alone the server would not hand out the description of its printer.
start_server() {
  cat >"$folder/server/cupsd.conf" <<END
Listen 127.0.0.1:$1
Browsing Off
WebInterface No
DefaultAuthType None
LogLevel debug
<Location />
  Order allow,deny
  Allow localhost
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
END
  rm -f "$folder/server.log"
  DBUS_SYSTEM_BUS_ADDRESS=$bus_address \
    cupsd -f -c "$folder/server/cupsd.conf" -s "$folder/server/cups-files.conf" \
    >"$folder/server.out" 2>&1 &
  server=$!
  until_ready "$server" grep -qE "Listening to 127|Unable to open listen" "$folder/server.log" ||
    fail 'the server does not start'
  grep -q 'Listening to 127' "$folder/server.log"
}
for try in {1..20}; do
  port=$((20000 + RANDOM % 12000))
  if start_server "$port"; then break; fi
  if ((try == 20)); then fail 'the server finds no port'; fi
  kill "$server" 2>/dev/null || true
  wait "$server" || true
done
export CUPS_SERVER=127.0.0.1:$port
lpadmin -p Enveloppes -E -v "$uri" -m everywhere
lpadmin -d Enveloppes

export VELMIRA_IMPRIMANTE=Enveloppes VELMIRA_URI=$uri VELMIRA_RECU=$folder/received
"$@" &
command=$!
wait "$command"
