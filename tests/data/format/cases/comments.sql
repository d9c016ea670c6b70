-- heading comment
select a -- why a
, b /* inline */ from t;


-- before the second statement

select 1 from dual; -- trailing after semicolon
begin
  -- inside the block
  x := 1;

  /* a block comment
     over two lines */
  if x > 0 then
    -- before end if
    null;
  end if;
  -- before end
end;
