(a 1 (b "x y" (c)) d)
(e)
