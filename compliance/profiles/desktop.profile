# What the desktop television offers.
players = 2
trick-play = yes
reverse = yes
subtitles = yes
components = yes
hls = yes
dash = yes
remove-callback = may-return-early
schemes = any
