# Sourced by run, test and .ci/run: installs what packages.txt names and is missing.
vx_install_packages() {
    local list missing=() name sudo=
    list=$(sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' "$1/packages.txt")
    for name in $list; do
        dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q '^install ok installed$' ||
            missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    [ "$(id -u)" -eq 0 ] || sudo=sudo
    echo "Installing: ${missing[*]}" >&2
    $sudo apt-get update -q >&2 &&
        DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends \
            "${missing[@]}" >&2
}
