001 Brass lantern
002 Copper wire
003 Glass vial
004 Stone tablet
005 Silver token
006 Canvas bag
007 Valve wheel
008 Fuse
009 Torn map
010 Cellar key
011 Ticket stub
012 Bronze gear
