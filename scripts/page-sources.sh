#!/usr/bin/env bash
# Brings the libraries of the report's page beside its sources: the build bundles them into the
# program. What is there already is not fetched again.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

command -v npm >/dev/null || install_packages nodejs npm
cd host/report/page
if ! cmp -s package-lock.json node_modules/fetched.json; then
  echo "Fetching the libraries of the report's page ..."
  quietly npm ci --ignore-scripts
  cp package-lock.json node_modules/fetched.json
fi
