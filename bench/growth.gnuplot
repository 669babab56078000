# Cost of a lookup against the size of the catalogue.
set terminal svg size 720,420 enhanced font 'sans-serif,13' background rgb 'white'
set output folder.'/growth.svg'
set logscale x
set format x '10^{%L}'
set xlabel 'rolls in the catalogue'
set ylabel 'one lookup, µs (geometric mean of the 39 keyed texts)'
set yrange [0:*]
set key bottom right
set grid ytics lc rgb '#dddddd'
set border 3
set tics nomirror
plot folder.'/growth.tsv' using 1:2 with linespoints lw 2 pt 7 lc rgb '#0b5fa5' title 'library', \
     '' using 1:3 with linespoints lw 2 pt 5 lc rgb '#b35c00' title 'SQLite C interface, same text'
