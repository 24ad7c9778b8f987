#!/usr/bin/env bash
# Figures of a whole host, the sampler: bench/host.sh PROGRAM SAMPLES
set -euo pipefail
program=$(realpath "$1")
samples=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export WIN32_DISPLAY=none TIMEFORMAT="%R %U %S"

# The real, user and system time in seconds of the sampler played the replay on standard input.
timed() {
    cat >steps
    { time WIN32_REPLAY=steps "$program" "$@" >output; } 2>&1
}
calculate() {
    awk "BEGIN { printf \"%.${2:-0}f\", $1 }"
}
all="$samples/welcome.txt $samples/rose.bmp $samples/harbour.bmp $samples/hills.bmp"
ready='wait window "hills.bmp"
wait idle'

for _ in 1 2 3 4 5 6 7 8 9; do
    timed "$samples/hills.bmp" <<<"$ready
quit"
done | sort -n | sed -n 5p >times
read -r real _ <times
echo "cold start to the first picture and to the end: $(calculate "$real * 1000") ms (100)"

# A bitmap of 1000 by 800: headers, then rows of 3,000 bytes.
{
    printf 'BM\x36\x9f\x24\x00\x00\x00\x00\x00\x36\x00\x00\x00'
    printf '\x28\x00\x00\x00\xe8\x03\x00\x00\x20\x03\x00\x00\x01\x00\x18\x00'
    head -c 24 /dev/zero
    head -c 2400000 /dev/urandom
} >large.bmp
echo "redraw of a document from its world, in one second (500): $(WIN32_SCREEN=1300x1000x32 "$program" --redraws=2000 large.bmp)"

steps=2000
read -r without _ < <(timed $all <<<"$ready
quit")
read -r with _ < <(timed $all <<<"$ready
move 300 112
press
repeat $((steps / 4))
move 340 150
move 380 220
move 420 260
move 330 180
end
release
quit")
echo "dragging a window across three others: $(calculate "$steps / ($with - $without)") steps a second (200)"

seconds=10
read -r _ user system < <(timed $all <<<"$ready
quit")
read -r _ idle_user idle_system < <(timed $all <<<"$ready
wait $((seconds * 1000))
quit")
echo "idle: $(calculate "($idle_user + $idle_system - $user - $system) / $seconds * 100" 2) % of a core (1)"

documents='repeat 200
key Ctrl+N
end
wait window "Untitled *00"
repeat 200
key Ctrl+W
end
wait gone "Untitled *"'
timed --report >/dev/null <<<"$documents
quit"
echo "200 documents opened and closed: $(sed -n 's/^memory: //p' output)"
