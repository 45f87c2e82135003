#!/usr/bin/env python3
"""Writes the manager tree's drag cursors (plugin/resources/images/cursor105.cur,
cursor111.cur): 32 x 32 monochrome Windows cursors drawn from the pictures
below ('#' black, 'o' white, anything else transparent). The output is
committed; run this after changing a picture."""
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, "..", "..", "plugin", "resources", "images")

# Over a controller that takes the console: the arrow with a plus.
DROP = """
#
##
#o#
#oo#
#ooo#
#oooo#
#ooooo#
#oooooo#
#ooooooo#
#oooooooo#
#ooooo#####
#oo#oo#
#o# #oo#
##  #oo#
#    #oo#
     #oo#
      #oo#  #########
      #oo#  #ooooooo#
       ##   #ooo#ooo#
            #ooo#ooo#
            ##### ###
            #ooooooo#
            #ooo#ooo#
            #ooo#ooo#
            #ooooooo#
            #########
"""

# Anywhere else: the arrow with a barred circle.
NO_DROP = """
#
##
#o#
#oo#
#ooo#
#oooo#
#ooooo#
#oooooo#
#ooooooo#
#oooooooo#
#ooooo#####
#oo#oo#
#o# #oo#
##  #oo#
#    #oo#
     #oo#   #####
      #oo# ##ooo##
      #oo##oo###oo#
       ## #oo#  ##o#
          #o##   #o#
          #o#o#  #o#
          #o# #o##o#
          #o#  #o#o#
          ##o#  #oo#
           #oo###oo#
            ##ooo##
             #####
"""


def cursor(picture, hotspot):
    rows = picture.strip("\n").split("\n")
    rows += [""] * (32 - len(rows))
    xor_rows, and_rows = [], []
    for row in rows[:32]:
        row = row.ljust(32)[:32]
        xor_bits = sum(1 << (31 - x) for x, c in enumerate(row) if c == "o")
        and_bits = sum(1 << (31 - x) for x, c in enumerate(row) if c not in "#o")
        xor_rows.append(struct.pack(">I", xor_bits))
        and_rows.append(struct.pack(">I", and_bits))
    image = struct.pack("<IiiHHIIiiII", 40, 32, 64, 1, 1, 0, 256, 0, 0, 2, 0)
    image += struct.pack("<II", 0x000000, 0xFFFFFF)
    image += b"".join(reversed(xor_rows)) + b"".join(reversed(and_rows))
    header = struct.pack("<HHH", 0, 2, 1)
    entry = struct.pack("<BBBBHHII", 32, 32, 2, 0, hotspot[0], hotspot[1], len(image), 6 + 16)
    return header + entry + image


for name, picture in (("cursor105.cur", DROP), ("cursor111.cur", NO_DROP)):
    with open(os.path.join(OUT, name), "wb") as out:
        out.write(cursor(picture, (0, 0)))
