# shellcheck shell=bash
# A fresh Debian system in a folder, of the same release as this machine and from where it gets its own packages. For the checks that
# try the program as somebody does who has nothing yet. To be read by a bash script that runs as root, with debootstrap installed.

# MakeSystem FOLDER: makes the system and sees to it that the folder is gone when the script ends. Fails with debootstrap's last words.
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

# In COMMAND...: runs it in the system, with an environment that owes nothing to this one.
In() { env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive chroot "$root" "$@"; }

RemoveSystem() {
    local place
    # What the walk left running may still hold them.
    for place in dev/pts dev proc; do ! mountpoint -q "$root/$place" || umount "$root/$place" 2>/dev/null || umount -l "$root/$place"; done
    rm -rf --one-file-system "$root" "$root.log"
}
