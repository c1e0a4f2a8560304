# shellcheck shell=bash
# Makes a new Debian system in a folder, of the same release and from the same mirror as this
# machine. For tests that start from a minimal system. To be sourced by a bash script that runs as
# root, with debootstrap installed.

# MakeSystem FOLDER: makes the system, and removes the folder when the script ends. On failure it
# prints the last messages of debootstrap.
MakeSystem() {
    root=$1
    mkdir -p "$root"
    chmod 755 "$root" # its ordinary users need to get in; mktemp makes folders for one user alone
    trap RemoveSystem EXIT
    local mirror
    # shellcheck disable=SC2016 # apt-get replaces $(SITE).
    mirror=$(apt-get indextargets --format '$(SITE)' "Created-By: Packages" | head -n 1)
    debootstrap --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root" "$mirror" >"$root.log" 2>&1 ||
        { tail "$root.log" >&2; return 1; }
    rm -f "$root.log"
    cp -r /etc/apt/sources.list* /etc/apt/apt.conf.d "$root/etc/apt/" 2>/dev/null || true
    cp /etc/resolv.conf /etc/hosts "$root/etc/"
    mount -t proc proc "$root/proc"
    mount --bind /dev "$root/dev"
    mount --bind /dev/pts "$root/dev/pts"
    In apt-get update -q >/dev/null
}

# In COMMAND...: runs a command in the system, with a clean environment.
In() { env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive chroot "$root" "$@"; }

RemoveSystem() {
    local place
    # Processes left by the walk may still use them.
    for place in dev/pts dev proc; do ! mountpoint -q "$root/$place" || umount "$root/$place" 2>/dev/null || umount -l "$root/$place"; done
    rm -rf --one-file-system "$root" "$root.log"
}
