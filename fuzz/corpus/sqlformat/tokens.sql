#select q'{a}b}' x, n'é', :new.col, &&sub, @x, ?, 1.5e-3, .5, 0x1F, 1..10, a<>-1 from "T" t, `b` where a := 1 -- end
/* open