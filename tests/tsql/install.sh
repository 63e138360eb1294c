#!/bin/sh
# Installs the parser into a folder of the build, unless it stands there already.
#   install.sh FOLDER
set -eu
source=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$1"
cd "$1"
if cmp -s "$source/package-lock.json" node_modules/.installed-lock.json; then
    exit 0
fi
cp "$source/package.json" "$source/package-lock.json" "$source/.npmrc" .
if ! npm ci --ignore-scripts --no-audit --no-fund >npm.log 2>&1; then
    echo "The T-SQL parser of this test could not be installed: it needs node, npm and the npm registry ($PWD/npm.log)." >&2
    exit 1
fi
cp package-lock.json node_modules/.installed-lock.json
