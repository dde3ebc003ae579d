#!/bin/bash
# What this machine lets the real-link rigs build. Every rig asks it first:
# it prints "ok" and exits 0 when a rig can be built here, otherwise prints
# why not (one Spanish line) and exits 77, and the rig is skipped with that
# reason. It builds the smallest rig there is: two network namespaces, a
# veth pair named ppp0 with its far end in the other one, and a shell in the
# first with a /proc and a /run of its own.
set -u

no() {
    echo "$1"
    exit 77
}

[ "$(id -u)" = 0 ] || no "hace falta ser root para crear espacios de red e interfaces"
for orden in ip unshare run-parts dash mount; do
    command -v "$orden" >/dev/null || no "falta la orden $orden"
done

lado=vorimesk-sondal-$$
modem=vorimesk-sondam-$$
trap 'ip netns del "$lado" 2>/dev/null; ip netns del "$modem" 2>/dev/null' EXIT
ip netns add "$lado" 2>/dev/null && ip netns add "$modem" 2>/dev/null ||
    no "no se permite crear espacios de red aqui (ip netns add)"
ip -n "$lado" link add ppp0 type veth peer name modem0 netns "$modem" 2>/dev/null ||
    no "no se permite crear una interfaz veth entre dos espacios de red aqui (ip link add type veth ... netns)"
ip netns exec "$lado" unshare -m -p -f --mount-proc \
    sh -c 'd=$(mktemp -d) && mount --bind "$d" /run && test -e /sys/class/net/ppp0; r=$?; rmdir "$d" 2>/dev/null; exit $r' \
    >/dev/null 2>&1 ||
    no "no se permite entrar en el espacio de red con /proc y /run propios aqui (ip netns exec, unshare, mount)"
echo ok
