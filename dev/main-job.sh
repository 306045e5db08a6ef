#!/usr/bin/env bash
# The main job, end to end: main-job.sh TOOL FOLDER
set -euo pipefail
"$1" --version
"$1" --help
