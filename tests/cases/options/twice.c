#warning one
#warning two
