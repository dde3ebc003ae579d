#!/bin/bash
# Fault matrix of the meter on real kernel links: for each scenario, calls
# expected, calls the register got, and calls it got twice. Every scenario
# runs in a network namespace of its own (so /sys shows only its ppp0), with
# a private /run and /proc (so only its own stand-in pppd is seen), a
# stand-in pppd (dash run under the name "pppd", which makes the interface,
# writes /run/pppN.pid and runs ip-up and ip-down the way Debian's
# /etc/ppp/ip-up does: ip-up.local when it is there, otherwise run-parts on
# ip-up.d) and `vorimesk-cli vigilar` watching it.
#
#   matriz_fallos.sh CLI GANCHO [REPETICIONES] [ESCENARIO...]
#
# GANCHO is the pppd hook installed in ip-up.d and ip-down.d (data/ppp/vorimesk;
# after a new hook is merged, the same matrix runs against it). Durations are
# random (2 to 4 s up, redials within 1 s where the scenario says so). The
# meter runs as a user would run it: no wait of its is shortened.
#
# Each row also gives the longest time, in seconds, from a link going down
# to its call being in the register file (read with `vorimesk-cli registro`
# five times a second); more than LIMITE seconds is a failure. In sin-dip the
# meter runs as a user who may not read the journal; in diario-tarde the
# pppd exits while its ip-down scripts still run, and the journal's session
# comes 30 s after the meter recorded the call: it must correct that call
# (the journal's bytes) and not add one.
# Exit 0 when every row is right, 1 otherwise, 77 when it cannot run here.
set -u

ESCENARIOS_TODOS="sin-gancho ip-up-local pppd-kill9 contador-kill9 remarcado dos-entradas demand persist-caida sin-dip diario-tarde"
LIMITE=5
RETRASO=30 # diario-tarde: how late the journal's session comes

if [ "${1:-}" = --dentro ]; then
    shift
    ESC=$1 T=$2 CLI=$3 GANCHO=$4 REPS=$5
    # Private /run: pid files and the hook's marks stay in the scenario.
    mkdir -p "$T/run"
    mount --bind "$T/run" /run || exit 3
    ETC=$T/etc-ppp
    mkdir -p "$ETC/ip-up.d" "$ETC/ip-down.d" "$T/bin"
    cp /bin/dash "$T/bin/pppd"
    case $ESC in
        sin-gancho) ;;
        *)
            # The scenario's own journal, never the machine's.
            sed "s|^DIARIO=/var/lib/vorimesk/sesiones\$|DIARIO=$T/sesiones|" "$GANCHO" \
                >"$ETC/ip-up.d/vorimesk"
            grep -q "^DIARIO=$T/sesiones\$" "$ETC/ip-up.d/vorimesk" || exit 3
            chmod 0755 "$ETC/ip-up.d/vorimesk"
            cp "$ETC/ip-up.d/vorimesk" "$ETC/ip-down.d/vorimesk"
            ;;
    esac
    mkdir -m 0750 "$T/sesiones"
    if [ "$ESC" = diario-tarde ]; then
        printf '#!/bin/sh\nsleep %s\n' "$RETRASO" >"$ETC/ip-down.d/00lento"
        chmod +x "$ETC/ip-down.d/00lento"
    fi
    if [ "$ESC" = ip-up-local ]; then
        printf '#!/bin/sh\nexit 0\n' >"$ETC/ip-up.local"
        cp "$ETC/ip-up.local" "$ETC/ip-down.local"
        chmod +x "$ETC/ip-up.local" "$ETC/ip-down.local"
    fi
    export T ETC LOG=$T/datos/modemlog.txt

    # The stand-in pppd, sourced by dash named pppd ($$ is pppd's pid).
    cat >"$T/sustituto.sh" <<'FIN'
IFAZ=${IFAZ:-ppp0}
PEER=$2
fase() {
    if [ -x "$ETC/$1.local" ]; then
        "$ETC/$1.local" "$IFAZ" /dev/ttyS0 115200 10.9.0.1 10.9.0.2 ""
        return
    fi
    env PPP_IFACE="$IFAZ" PPP_TTY=/dev/ttyS0 PPP_SPEED=115200 PPP_LOCAL=10.9.0.1 \
        PPP_REMOTE=10.9.0.2 PPP_IPPARAM= CALL_FILE="$PEER" PPPD_PID=$$ \
        VORIMESK_MODEMLOG="$LOG" BYTES_RCVD="${RX:-}" BYTES_SENT="${TX:-}" \
        CONNECT_TIME="${SEGUNDOS:-}" \
        run-parts --arg="$IFAZ" --arg=/dev/ttyS0 --arg=115200 --arg=10.9.0.1 \
        --arg=10.9.0.2 --arg= "$ETC/$1.d"
}
interfaz() {
    ip link add "$IFAZ" type veth peer name "m$IFAZ" && ip link set "m$IFAZ" up &&
        ip link set "$IFAZ" up
    echo $$ >"/run/$IFAZ.pid"
}
arriba() { INICIO=$(date +%s); fase ip-up; }
abajo() {
    RX=$(cat "/sys/class/net/$IFAZ/statistics/rx_bytes" 2>/dev/null)
    TX=$(cat "/sys/class/net/$IFAZ/statistics/tx_bytes" 2>/dev/null)
    SEGUNDOS=$(($(date +%s) - INICIO))
    fase ip-down
    RX= TX= SEGUNDOS=
}
caida() { date +%s.%N >>"$T/caidas.txt"; }
quitar() { ip link del "$IFAZ" 2>/dev/null; rm -f "/run/$IFAZ.pid"; caida; }
trap 'abajo; quitar; exit 0' TERM
case ${MODO:-normal} in
    normal)
        interfaz; arriba; sleep "$DURACION"; abajo; quitar ;;
    tarde)
        # pppd goes; its ip-down scripts go on without it (a slow one first).
        interfaz; arriba; sleep "$DURACION"
        RX=2097152 TX=1048576 SEGUNDOS=$(($(date +%s) - INICIO)) fase ip-down &
        quitar ;;
    persist)
        # DURACIONES: "up pause up pause ...": each session, then the redial.
        set -- $DURACIONES
        while [ $# -ge 1 ]; do
            interfaz; arriba; sleep "$1"; abajo; quitar
            [ $# -ge 2 ] && sleep "$2"
            shift 2 2>/dev/null || shift
        done ;;
    demand)
        # The interface is up from the start; calls are ip-up..ip-down.
        interfaz
        set -- $DURACIONES
        while [ $# -ge 1 ]; do
            sleep 1.5; arriba; sleep "$1"; abajo; caida; shift
        done
        sleep 1; ip link del "$IFAZ" 2>/dev/null; rm -f "/run/$IFAZ.pid" ;;
esac
FIN

    COMO=
    if [ "$ESC" = sin-dip ]; then
        # A desktop user outside the dial-up group: the journal is root's.
        chmod 0711 "$T" "$(dirname "$T")"
        "$CLI" --datos "$T/datos" tarifas >/dev/null # the folder as a first run makes it
        mkdir -p "$T/xdg"
        chown -R nobody:nogroup "$T/datos" "$T/xdg"
        COMO="setpriv --reuid=nobody --regid=nogroup --clear-groups"
    fi
    CONTADOR=
    contador() {
        $COMO env VORIMESK_MODEMLOG="$LOG" XDG_RUNTIME_DIR="$T/xdg" \
            VORIMESK_SESIONES="$T/sesiones" \
            "$CLI" --datos "$T/datos" vigilar >>"$T/salida.txt" 2>>"$T/errores.txt" &
        CONTADOR=$!
    }
    llamadas() { $COMO "$CLI" --datos "$T/datos" registro --json 2>/dev/null; }
    # When the register file gets each call: "moment count" on every change.
    vigia() {
        local n=0 m
        while :; do
            m=$(llamadas | jq '.llamadas | length' 2>/dev/null)
            if [ -n "$m" ] && [ "$m" != "$n" ]; then
                echo "$(date +%s.%N) $m" >>"$T/anotadas.txt"
                n=$m
            fi
            sleep 0.2
        done
    }
    pppd() { # peer, then env assignments
        local peer=$1
        shift
        env "$@" "$T/bin/pppd" -c ". $T/sustituto.sh" pppd call "$peer" &
        PPPD=$!
    }
    pppd_demand() {
        env "$@" "$T/bin/pppd" -c ". $T/sustituto.sh" pppd call casa demand &
        PPPD=$!
    }
    dur() { echo $((2 + RANDOM % 3)); }
    redial() { echo "0.$((1 + RANDOM % 9))"; }

    mkdir -p "$T/xdg"
    contador
    vigia &
    VIGIA=$!
    sleep 1.5
    ESPERADAS=0
    case $ESC in
        sin-gancho | ip-up-local | sin-dip)
            for _ in $(seq "$REPS"); do
                pppd casa MODO=normal DURACION="$(dur)"; wait $PPPD
                ESPERADAS=$((ESPERADAS + 1)); sleep 1.5
            done ;;
        pppd-kill9)
            for _ in $(seq "$REPS"); do
                pppd casa MODO=normal DURACION=100; sleep "$(dur)"
                kill -9 $PPPD; wait $PPPD 2>/dev/null
                # The kernel takes the unit with the last fd of /dev/ppp.
                ip link del ppp0 2>/dev/null; rm -f /run/ppp0.pid
                date +%s.%N >>"$T/caidas.txt"
                ESPERADAS=$((ESPERADAS + 1)); sleep 1.5
            done ;;
        contador-kill9)
            for _ in $(seq "$REPS"); do
                pppd casa MODO=normal DURACION=$(($(dur) + 3)); sleep 2.5
                kill -9 $CONTADOR; wait $CONTADOR 2>/dev/null; sleep 0.5
                contador; wait $PPPD
                ESPERADAS=$((ESPERADAS + 1)); sleep 1.5
            done ;;
        remarcado | persist-caida)
            d=
            for i in $(seq "$REPS"); do
                d="$d $(dur)"
                if [ "$i" -lt "$REPS" ]; then
                    if [ "$ESC" = remarcado ]; then d="$d $(redial)"; else d="$d 1.$((RANDOM % 9))"; fi
                fi
            done
            pppd casa MODO=persist DURACIONES="$d"; wait $PPPD
            ESPERADAS=$REPS ;;
        dos-entradas)
            for _ in $(seq "$REPS"); do
                pppd casa MODO=normal DURACION="$(dur)"; wait $PPPD
                pppd trabajo MODO=normal DURACION="$(dur)"; wait $PPPD
                ESPERADAS=$((ESPERADAS + 2)); sleep 1.5
            done ;;
        demand)
            d=
            for _ in $(seq "$REPS"); do d="$d $(dur)"; done
            pppd_demand MODO=demand DURACIONES="$d"; wait $PPPD
            ESPERADAS=$REPS ;;
        diario-tarde)
            pppd casa MODO=tarde DURACION="$(dur)"; wait $PPPD
            ESPERADAS=1
            sleep $((RETRASO + 3)) ;;
    esac
    # The calls are there within the limit, or the row says how late.
    for _ in $(seq $((LIMITE * 5 + 5))); do
        if [ "$(llamadas | jq '.llamadas | length' 2>/dev/null)" = "$ESPERADAS" ]; then
            echo "$(date +%s.%N) $ESPERADAS" >>"$T/anotadas.txt" # in case the watch missed it
            break
        fi
        sleep 0.2
    done
    sleep 0.5
    kill $VIGIA; wait $VIGIA 2>/dev/null
    kill -TERM $CONTADOR; wait $CONTADOR
    JSON=$(llamadas)
    ANOTADAS=$(printf '%s' "$JSON" | jq '.llamadas | length')
    DISTINTAS=$(printf '%s' "$JSON" | jq '[.llamadas[] | .Dia + " " + .Hora] | unique | length')
    # Twice: the same start more than once, or more calls than there were.
    DUPLICADAS=$((ANOTADAS - DISTINTAS))
    [ $((ANOTADAS - ESPERADAS)) -gt $DUPLICADAS ] && DUPLICADAS=$((ANOTADAS - ESPERADAS))
    # The i-th link down against the first moment the register held i calls.
    SEGUNDOS=$(awk 'NR == FNR { caida[NR] = $1; n = NR; next }
        { for (i = 1; i <= $2; i++) if (!(i in anotada)) anotada[i] = $1 }
        END {
            peor = 0
            for (i = 1; i <= n; i++) {
                if (!(i in anotada)) { print "-"; exit }
                d = anotada[i] - caida[i]; if (d > peor) peor = d
            }
            printf "%.1f\n", peor
        }' "$T/caidas.txt" "$T/anotadas.txt" 2>/dev/null)
    NOTA=-
    if [ "$ESC" = diario-tarde ]; then
        # The journal's bytes (2048 KB in, 1024 KB out) replaced the meter's.
        NOTA=sin-corregir
        [ "$(printf '%s' "$JSON" | jq -c '[.llamadas[] | [.Recibidos, .Enviados]]')" = \
            "[[2048,1024]]" ] && NOTA=corregida
    fi
    echo "$ESC $ESPERADAS $ANOTADAS $DUPLICADAS ${SEGUNDOS:--} $NOTA"
    exit 0
fi

CLI=$(realpath "$1") GANCHO=$(realpath "$2") REPS=${3:-4}
shift 3 2>/dev/null || shift $#
ESCENARIOS=${*:-$ESCENARIOS_TODOS}
if ! motivo=$(bash "$(dirname "$(realpath "$0")")/sonda_rig.sh"); then
    echo "SKIP: $motivo"; exit 77
fi
for orden in jq setpriv; do
    command -v $orden >/dev/null || { echo "SKIP: falta la orden $orden"; exit 77; }
done
RAIZ=$(mktemp -d /tmp/vorimesk-matriz.XXXXXX)
PROPIO=$(realpath "$0")
limpiar() {
    for ns in $(ip netns list | awk -v pid="$$" '$1 ~ ("^vorimesk-mf[0-9]*-" pid "$") {print $1}'); do
        ip netns del "$ns"
    done
    [ -n "${MATRIZ_CONSERVAR:-}" ] || rm -rf "$RAIZ"
}
trap limpiar EXIT

# Two scenarios at a time: the machine has two cores and the meter ticks once
# a second anyway.
n=0
for esc in $ESCENARIOS; do
    n=$((n + 1))
    # The pid last, as every rig of the project names them, so a run that
    # was killed is cleaned up by the next one of any of them.
    ns=vorimesk-mf$n-$$
    mkdir -p "$RAIZ/$esc"
    (
        ip netns add "$ns"
        ip netns exec "$ns" unshare -m -p -f --mount-proc \
            bash "$PROPIO" --dentro "$esc" "$RAIZ/$esc" "$CLI" "$GANCHO" "$REPS" \
            >"$RAIZ/$esc/fila.txt" 2>"$RAIZ/$esc/rig.txt"
        ip netns del "$ns"
    ) &
    if [ $((n % 2)) -eq 0 ]; then wait; fi
done
wait

fallos=0
printf '%-16s %9s %9s %11s %9s %s\n' escenario esperadas anotadas duplicadas segundos nota
for esc in $ESCENARIOS; do
    read -r nombre esperadas anotadas duplicadas segundos nota <"$RAIZ/$esc/fila.txt" ||
        { echo "$esc: no termino"; cat "$RAIZ/$esc/rig.txt"; fallos=1; continue; }
    printf '%-16s %9s %9s %11s %9s %s\n' "$nombre" "$esperadas" "$anotadas" "$duplicadas" \
        "$segundos" "$nota"
    tarde=$(awk -v s="$segundos" -v l="$LIMITE" 'BEGIN { print (s == "-" || s > l) ? 1 : 0 }')
    if [ "$esperadas" != "$anotadas" ] || [ "$duplicadas" != 0 ] || [ "$tarde" = 1 ] ||
        [ "$nota" = sin-corregir ]; then
        fallos=1
        echo "--- $esc: salida del contador"; tail -n 40 "$RAIZ/$esc/salida.txt"
        cat "$RAIZ/$esc/errores.txt"
    fi
done
exit $fallos
