# Completion of vxstudio's options and files.
_vxstudio()
{
    local cur prev words cword
    _init_completion || return
    case $prev in
        --script) _filedir js; return ;;
        --screenshot) _filedir png; return ;;
        --settings) _filedir json; return ;;
        --plugin-path) _filedir -d; return ;;
        --language) COMPREPLY=($(compgen -W 'de en' -- "$cur")); return ;;
        --palette) COMPREPLY=($(compgen -W 'dark light contrast' -- "$cur")); return ;;
        --text-size) COMPREPLY=($(compgen -W '8 10 12 14 18 24' -- "$cur")); return ;;
        --size) COMPREPLY=($(compgen -W '1280x800 1920x1080 2560x1440' -- "$cur")); return ;;
        --log) COMPREPLY=($(compgen -W 'all plugins scripts files recovery' -- "$cur")); return ;;
        --frame | --animation | --time-limit | --memory-limit) return ;;
    esac
    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$(vxstudio --help 2>/dev/null |
            grep -oE '^  (-[a-z], )?--[a-z-]+' | grep -oE -- '--[a-z-]+')" -- "$cur"))
        return
    fi
    _filedir '@(vxscene|bvh|glb|gltf|fbx|csv|dae)'
} && complete -F _vxstudio vxstudio
