# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Completion of vistrel-run and vistrel-viewer in bash: options, cameras, scripts, pictures.

_vistrel_cameras() {
    vistrel-run --list-cameras 2>/dev/null | cut -f1
}

# Words for what follows the option before; 1 when that takes no value.
_vistrel_value() {
    local current=$1 option=$2 IFS=$'\n'
    case $option in
        --camera) COMPREPLY=($(compgen -W "$(_vistrel_cameras)" -- "$current")) ;;
        --open | --plugin) COMPREPLY=($(compgen -f -- "$current")) ;;
        =) COMPREPLY=($(compgen -f -- "$current")) ;; # bash takes NAME=FILE for three words
        --cwd | --python-home) COMPREPLY=($(compgen -d -- "$current")) ;;
        --image | --answer | --choose) COMPREPLY=() ;;
        *) return 1 ;;
    esac
}

_vistrel() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local options files IFS=$'\n'
    _vistrel_value "$current" "$previous" && return
    case ${1##*/} in
        vistrel-viewer) options='--camera --plugin --version --help --help-all' files='!*' ;;
        *)
            options='--open --camera --list-cameras --image --answer --choose --cwd --python-home'
            options+=' --plugin --version --help'
            files='!*.py'
            ;;
    esac
    if [[ $current == -* ]]; then
        COMPREPLY=($(compgen -W "${options// /$'\n'}" -- "$current"))
    else
        COMPREPLY=($(compgen -d -- "$current") $(compgen -f -X "$files" -- "$current"))
    fi
}

complete -o filenames -F _vistrel vistrel-run vistrel-viewer
