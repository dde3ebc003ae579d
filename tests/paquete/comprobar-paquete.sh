#!/usr/bin/env bash
# Builds the Debian package from an already built tree and checks that it holds
# what a desktop install needs, with nothing outside the system folders.
set -euo pipefail
build=$1
fuentes=$2
cd "$build"
rm -f vorimesk_*.deb
cpack -G DEB >cpack.log 2>&1 || { cat cpack.log; exit 1; }
deb=$(ls vorimesk_*.deb)
lista=$(dpkg-deb -c "$deb" | awk '{print $6}')
falta=0
for ruta in \
    ./usr/bin/vorimesk-cli \
    ./usr/share/applications/vorimesk.desktop \
    ./usr/share/metainfo/es.vorimesk.Vorimesk.metainfo.xml \
    ./usr/share/icons/hicolor/scalable/apps/vorimesk.svg \
    ./usr/share/icons/hicolor/48x48/apps/vorimesk.png \
    ./usr/share/icons/hicolor/256x256/apps/vorimesk.png \
    ./usr/share/man/man1/vorimesk-cli.1.gz \
    ./usr/share/man/man1/vorimesk.1.gz \
    ./usr/share/man/man1/pelmorad.1.gz \
    ./usr/share/doc/vorimesk/copyright \
    ./usr/share/doc/vorimesk/changelog.gz \
    ./usr/share/vorimesk/ayuda/index.html \
    ./usr/share/vorimesk/Tarifas.Dat \
    ./usr/lib/systemd/user/vorimesk-vigilar.service \
    ./etc/ppp/ip-up.d/vorimesk \
    ./etc/ppp/ip-down.d/vorimesk \
    ./usr/lib/tmpfiles.d/vorimesk.conf; do
  if ! grep -qx -- "$ruta" <<<"$lista"; then
    echo "Falta en el paquete: $ruta"
    falta=1
  fi
done
for programa in vorimesk pelmorad; do
  if [ -x "apps/$programa/$programa" ] && ! grep -qx -- "./usr/bin/$programa" <<<"$lista"; then
    echo "Falta en el paquete: ./usr/bin/$programa"
    falta=1
  fi
done
fuera=$(grep -vE '^\./(usr|etc)(/|$)|^\./$' <<<"$lista" || true)
if [ -n "$fuera" ]; then
  echo "Archivos fuera de /usr y /etc:"; echo "$fuera"; falta=1
fi
dpkg-deb -I "$deb" control | grep -q '^Depends:.*libc6' || { echo "El paquete no declara sus dependencias"; falta=1; }
for guion in postinst postrm; do
  dpkg-deb -I "$deb" "$guion" | grep -q /var/lib/vorimesk || { echo "Falta el $guion del diario"; falta=1; }
done
dpkg-deb -I "$deb" conffiles | grep -q '/etc/ppp/ip-up.d/vorimesk' || { echo "Faltan los conffiles"; falta=1; }
dpkg-deb -I "$deb" control | grep -q '^Depends:.*qt6-translations-l10n' || { echo "El paquete no depende de las traducciones de Qt"; falta=1; }
# The user service as systemd reads it, pointed at the built program since
# the package is not installed here.
# (systemd-analyze needs a runtime folder of its own; warnings such as an
# unknown key count as failures.)
if command -v systemd-analyze >/dev/null 2>&1; then
  unidad=$(mktemp -d)
  sed "s|^ExecStart=[^ ]*|ExecStart=$PWD/apps/vorimesk-cli/vorimesk-cli|" \
    "$fuentes"/data/systemd/vorimesk-vigilar.service >"$unidad/vorimesk-vigilar.service"
  mkdir -m 700 "$unidad/run"
  if ! XDG_RUNTIME_DIR="$unidad/run" systemd-analyze --user verify --man=no \
       "$unidad/vorimesk-vigilar.service" >"$unidad/verify.log" 2>&1 || [ -s "$unidad/verify.log" ]; then
    if grep -q "Failed to initialize manager" "$unidad/verify.log"; then
      echo "systemd-analyze no puede trabajar aqui: la unidad de usuario no se comprueba"
    else
      echo "systemd no acepta la unidad:"; cat "$unidad/verify.log"; falta=1
    fi
  fi
  rm -rf "$unidad"
else
  echo "systemd-analyze no esta: la unidad de usuario no se comprueba"
fi
# Debian's own checker, when it is installed: no error and no warning.
if command -v lintian >/dev/null 2>&1; then
  if ! lintian --fail-on error,warning "$deb" >lintian.log 2>&1; then
    echo "lintian encuentra problemas en el paquete:"; cat lintian.log; falta=1
  fi
else
  echo "lintian no esta: el paquete no se comprueba con el"
fi
desktop-file-validate "$fuentes"/data/*.desktop
appstreamcli validate --no-net "$fuentes"/data/es.vorimesk.Vorimesk.metainfo.xml >/dev/null
exit $falta
