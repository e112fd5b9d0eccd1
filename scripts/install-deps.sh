#!/usr/bin/env bash
# Installs every Debian 12 package Pitchlark needs to build, run and test.
# Safe to run again: it only asks apt for the packages that are missing.
set -euo pipefail

packages=(
  # toolchain
  cmake ninja-build ccache g++ pkg-config clang libclang-rt-14-dev clang-format
  # Qt 6 and QCoro
  qt6-base-dev qt6-base-dev-tools qt6-declarative-dev qt6-declarative-dev-tools
  qt6-svg-dev qt6-httpserver-dev qt6-websockets-dev qt6-shadertools-dev qcoro-qt6-dev
  libgl-dev libvulkan-dev qt6-qpa-plugins
  qml6-module-qtqml qml6-module-qtqml-workerscript qml6-module-qtquick
  qml6-module-qtquick-controls qml6-module-qtquick-templates qml6-module-qtquick-layouts
  qml6-module-qtquick-window qml6-module-qtquick-shapes
  # KWin's blur on Wayland: Qt's native interface, the protocol bindings, and Qt's wayland platform
  qt6-base-private-dev libwayland-dev libwayland-bin plasma-wayland-protocols wayland-protocols qt6-wayland
  # updates, desktop and tests
  libsodium-dev dbus-daemon dbus-bin xvfb xauth fonts-noto-color-emoji tzdata
  # the real StatusNotifierWatcher the tray tests register with
  haskell-status-notifier-item-utils
  # the real iCalendar parser the calendar tests read their files back with
  python3 python3-icalendar
)

missing=()
for package in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$package")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
  sudo_cmd=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -q
"${sudo_cmd[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
