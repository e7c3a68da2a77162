#!/usr/bin/env bash
# Makes the sounds of the table: the calls of one stick person, five throws of the dice, five chips,
# three wins and the shower of chips. The same bytes come out every time.
#
#   apt-get install flite sox && sounds/make_sounds.sh [FOLDER]
#
# The number in a stick person's file name is its call: 2 to 12 the totals, 13 a pass, 14 a
# seven-out, 16 a hard way, 17 the come-out, 18 a new shooter, 1 the corner of the layout. The
# fourth dice and chip sound and the second win, in the order of their names, are what a new table
# begins with.
set -euo pipefail
folder=$(realpath "${1:-"$(dirname "${BASH_SOURCE[0]}")"}")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$folder"

rate=16000
Sox() { sox -R -q "$@"; }
soft_end='reverse fade t 0.03 reverse'

# -- Speech ------------------------------------------------------------------

calls=(
  "Place your bets, please!"
  "Two! Aces!"
  "Three! Ace, deuce!"
  "Four! Little Joe!"
  "Five! Fever five!"
  "Six! Easy money!"
  "Seven!"
  "Eight! Square pair!"
  "Nine! Center field!"
  "Ten! Puppy paws!"
  "Yo! Eleven!"
  "Twelve! Boxcars!"
  "Winner! Pay the line!"
  "Seven out! Line away!"
  "No roll!"
  "The hard way!"
  "Coming out!"
  "New shooter!"
)

Say() {  # NUMBER TEXT: brisk and a little brighter than the voice is by nature, with some room
  local number speech=$scratch/speech.wav
  number=$(printf %02d "$1")
  flite -voice rms --setf duration_stretch=0.92 --setf int_f0_target_mean=118 \
        --setf int_f0_target_stddev=24 -t "$2" -o "$speech"
  Sox "$speech" -r $rate -c 1 -b 16 -t wav "$folder/Casey$number.stk" \
      highpass 90 equalizer 2600 1.2q +4 silence 1 0.02 0.5% reverse silence 1 0.02 0.5% reverse \
      gain -16 compand 0.01,0.1 6:-60,-40,-12 gain -9 reverb 12 40 20 100 0 -4 norm -2 $soft_end
}

for i in "${!calls[@]}"; do Say $((i + 1)) "${calls[$i]}"; done

# -- Clay, resin and wood ------------------------------------------------------

# One knock: a click of noise in a band and two short partials of the body that was struck.
Knock() {  # OUT LOW HIGH PARTIAL1 PARTIAL2 DECAY LOUDNESS
  Sox -n -r $rate -c 1 "$scratch/noise.wav" synth "$6" whitenoise sinc "$2-$3" fade l 0 "$6" "$6"
  Sox -n -r $rate -c 1 "$scratch/body.wav" synth "$6" sine "$4" synth "$6" sine mix "$5" \
      fade l 0 "$6" "$6"
  Sox -m -v 0.9 "$scratch/noise.wav" -v 0.4 "$scratch/body.wav" "$1" norm -3 vol "$7"
}

# Knocks at their times, mixed: "SECONDS LOW HIGH PARTIAL1 PARTIAL2 DECAY LOUDNESS" a line on input.
Scene() {  # OUT
  local parts=() n=0 time low high one two decay loud
  while read -r time low high one two decay loud; do
    Knock "$scratch/knock.wav" "$low" "$high" "$one" "$two" "$decay" "$loud"
    Sox "$scratch/knock.wav" "$scratch/part$n.wav" pad "$time"
    parts+=("$scratch/part$n.wav")
    n=$((n + 1))
  done
  Sox -m "${parts[@]}" -b 16 -t wav "$1" reverb 18 60 25 100 0 -3 norm -3 \
      silence -l 1 0.001 0.1% reverse silence -l 1 0.02 0.4% reverse \
      $soft_end
}

# A run of bounces from a starting gap; each gap and loudness is a share of the one before.
Bounces() {  # START GAP RATIO COUNT LOW HIGH PARTIAL1 PARTIAL2 DECAY LOUDNESS
  awk -v t="$1" -v gap="$2" -v ratio="$3" -v n="$4" -v low="$5" -v high="$6" -v one="$7" \
      -v two="$8" -v decay="$9" -v loud="${10}" 'BEGIN {
    for (i = 0; i < n; ++i) {
      wobble = 1 + 0.07 * ((i * 7) % 5 - 2)
      printf "%.4f %d %d %d %d %.3f %.3f\n", t, low, high, one * wobble, two * wobble, decay, loud
      t += gap * wobble; gap *= ratio; loud *= 0.5 + ratio / 2.4
    }}'
}

chip="2500 7000 3900 6100"
{ Bounces 0 .03 .7 2 $chip .05 .9; } | Scene "$folder/Chip click.chp"
{ Bounces 0 .05 .8 3 $chip .05 .8; } | Scene "$folder/Chip drop.chp"
{ Bounces 0 .035 .98 8 $chip .04 .6; } | Scene "$folder/Chip riffle.chp"
{ Bounces 0 .07 .7 4 $chip .06 .9; } | Scene "$folder/Chip stack.chp"
{ Bounces 0 .06 .75 3 600 2400 900 1500 .08 .9; } | Scene "$folder/Chip thud.chp"

die="900 4200 1500 2700"
felt="200 900 240 420"
{ Bounces 0 .06 .9 6 $die .05 .7; Bounces .03 .07 .86 5 $die .05 .6; } |
  Scene "$folder/Dice bounce.dce"
{ Bounces 0 .045 .97 9 $die .04 .4; Bounces .45 .11 .7 5 $felt .10 .9; } |
  Scene "$folder/Dice on felt.dce"
{ Bounces 0 .04 1 12 $die .04 .7; } | Scene "$folder/Dice rattle.dce"
{ Bounces 0 .05 1 6 $die .04 .4; Bounces .35 .13 .72 6 $felt .09 .8
  Bounces .37 .12 .75 6 $die .05 .8; } | Scene "$folder/Dice throw.dce"
{ Bounces 0 .13 .7 4 150 700 190 310 .14 1; Bounces .02 .09 .8 5 $die .05 .5; } |
  Scene "$folder/Dice wall.dce"

{ Bounces 0 .02 1.03 40 $chip .05 .55; Bounces .01 .031 1.02 30 1800 5200 3100 4700 .06 .6; } |
  Scene "$folder/Chips.wav"

# -- Wins ----------------------------------------------------------------------

# Bell notes one after another, each with an octave and a fifth above it that die away sooner.
Chime() {  # OUT GAP HERTZ...
  local out=$1 gap=$2 parts=() n=0 hertz
  shift 2
  for hertz in "$@"; do
    Sox -n -r $rate -c 1 "$scratch/a.wav" synth .9 sine "$hertz" fade l 0.004 .9 .88
    Sox -n -r $rate -c 1 "$scratch/b.wav" synth .5 sine "$((hertz * 2))" fade l 0.002 .5 .49
    Sox -n -r $rate -c 1 "$scratch/c.wav" synth .3 sine "$((hertz * 3))" fade l 0.001 .3 .29
    Sox -m -v .6 "$scratch/a.wav" -v .3 "$scratch/b.wav" -v .15 "$scratch/c.wav" \
        "$scratch/note$n.wav" pad "$(awk -v n=$n -v g="$gap" 'BEGIN { print n * g }')"
    parts+=("$scratch/note$n.wav")
    n=$((n + 1))
  done
  Sox -n -r $rate -c 1 "$scratch/rest.wav" trim 0 .2  # so that one note is a mixture too
  Sox -m "${parts[@]}" "$scratch/rest.wav" -b 16 -t wav "$out" reverb 25 50 40 100 0 -4 norm -5 \
      $soft_end
}
Chime "$folder/Win bell.win" .1 1568
Chime "$folder/Win chime.win" .09 1047 1319 1568
Chime "$folder/Win fanfare.win" .12 784 784 1047 1319 1047 1568
