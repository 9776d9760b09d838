#!/usr/bin/env bash
# Inside the chroot: the package's life from installation to purging. usage: lifecycle.sh FOLDER-WITH-THE-PACKAGES
set -euo pipefail
packages=$1
home=/home/mara

fail() {
    echo "FAILED: $*"
    cat /tmp/brisklog.log 2>/dev/null || true
    find $home -ls 2>/dev/null || true
    exit 1
}
passed() { echo "passed: $*"; }
apt_install() { apt-get install -y -q -o Dpkg::Use-Pty=0 "$@" >/tmp/apt.log 2>&1 || { tail -n 30 /tmp/apt.log; fail "apt-get install $*"; }; }

# An array, not a function: what is started with it in the background has the process id that $! says.
as_user=(setpriv --reuid=mara --regid=mara --init-groups env -i HOME=$home PATH=/usr/bin:/bin LANG=C.UTF-8 DISPLAY=:7
    XDG_RUNTIME_DIR=/run/mara DBUS_SESSION_BUS_ADDRESS=unix:path=/run/mara/bus)

windows() { "${as_user[@]}" xdotool search --onlyvisible --name '^Brisklog$' 2>/dev/null || true; }

wait_for() {
    for _ in $(seq 150); do
        if eval "$1"; then return 0; fi
        sleep 0.1
    done
    fail "waited in vain for: $1"
}

fingerprint() { (cd $home && find . -type f -not -path '*/.cache/*' -not -name lock -print0 | sort -z | xargs -0 sha256sum); }

# Nothing but the package: what it needs has to come with it.
apt-get update -q >/dev/null
apt_install --no-install-recommends "$packages/brisklog.deb"
passed "installs on a minimal system"
missing=$(ldd /usr/bin/brisklog | grep 'not found' || true)
[ -z "$missing" ] || fail "libraries are missing: $missing"
passed "finds its libraries"

# Only now a desktop to start it on.
apt_install --no-install-recommends xvfb xdotool dbus openbox gtk-update-icon-cache hicolor-icon-theme
grep -q example.brisklog.Brisklog /usr/share/icons/hicolor/icon-theme.cache || fail "the icon cache does not have the icon"
passed "stands in the icon cache, refreshed by its trigger"

useradd --create-home mara
mkdir -p /run/mara /tmp/.X11-unix
chown mara /run/mara
chmod 700 /run/mara
chmod 1777 /tmp/.X11-unix
"${as_user[@]}" Xvfb :7 -screen 0 1024x768x24 -nolisten local >/dev/null 2>&1 &
"${as_user[@]}" dbus-daemon --session --address=unix:path=/run/mara/bus --nofork >/dev/null 2>&1 &
wait_for '[ -S /run/mara/bus ] && [ -S /tmp/.X11-unix/X7 ]'
"${as_user[@]}" openbox >/dev/null 2>&1 &

"${as_user[@]}" mkdir $home/Documents
"${as_user[@]}" tee $home/Documents/projects.json >/dev/null <<'EOF'
[{"id":"5C0E4A44-2B1D-4B0E-9C39-0D5B0B6F0001","name":"Website","hourlyRate":85.5,"entries":[]}]
EOF
"${as_user[@]}" brisklog >/tmp/brisklog.log 2>&1 &
program=$!
wait_for '[ -n "$(windows)" ]'
kill -0 $program || fail "it ended by itself"
wait_for "compgen -G '$home/.local/state/brisklog/backups/*/projects.json' >/dev/null"
grep -q Website $home/Documents/projects.json || fail "it lost a project"
passed "starts, shows its window and writes the user's files"

before=$(fingerprint)
[ -n "$before" ] || fail "there are no files of the user"
apt_install --no-install-recommends "$packages/next.deb"
kill -0 $program || fail "the upgrade ended the running program"
[ -n "$(windows)" ] || fail "the upgrade closed the window"
passed "goes on running while it is upgraded"
"${as_user[@]}" brisklog >/dev/null 2>&1 || fail "the new version does not reach the running one"
passed "the new version's start reaches the running one"

kill $program
wait $program 2>/dev/null || true
"${as_user[@]}" brisklog >/tmp/brisklog.log 2>&1 &
program=$!
wait_for '[ -n "$(windows)" ]'
kill -0 $program || fail "the new version does not start"
kill $program
wait $program 2>/dev/null || true
passed "the new version starts over the old one's files"

kept=$(fingerprint)
apt-get remove -y -q brisklog >/dev/null 2>&1
[ ! -e /usr/bin/brisklog ] || fail "removed, but still there"
[ "$(fingerprint)" = "$kept" ] || fail "removing touched the user's files"
passed "can be removed; the user's files stay"
# Of a package without configuration files nothing is left to purge after removing it.
apt_install --no-install-recommends "$packages/brisklog.deb"
apt-get purge -y -q brisklog >/dev/null 2>&1
leftovers=$(find / -xdev \( -path /proc -o -path /sys -o -path "$packages" -o -path /var/lib/apt -o -path /home -o -path /tmp \) -prune \
    -o -iname '*brisklog*' -print || true)
[ -z "$leftovers" ] || fail "purging leaves: $leftovers"
[ "$(fingerprint)" = "$kept" ] || fail "purging touched the user's files"
for file in $(echo "$before" | awk '{ print $2 }'); do [ -e "$home/$file" ] || fail "lost: $file"; done
passed "can be purged without a trace; the user's files stay"
jobs -p | xargs -r kill 2>/dev/null || true
