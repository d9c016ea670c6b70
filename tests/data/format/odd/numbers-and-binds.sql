select 'multi
line string', 1.5e-3, .5, 0x1F, 1..10, :new.col, &&sub, @x, ? from t