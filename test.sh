#!/usr/bin/env bash
# Builds Zonterbrook and runs all its tests; the last lines are the summary. Installs the Debian packages that are missing.
# No display is needed: the tests of the window draw off screen.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
# shellcheck source=scripts/common.sh
. scripts/common.sh

need_packages
build_release all

say "Running the tests"
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
ctest --preset release --output-on-failure --parallel "$(nproc)"
