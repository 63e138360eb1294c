#!/bin/bash
# The manual in the system's help window, by key, by menu and by the toolbar.
. "$(dirname "$0")/functions"

start_dalvora EMPRESA=001
press F1
sleep 5
windows
picture help
