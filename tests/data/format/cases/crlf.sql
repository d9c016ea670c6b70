begin
x;


y;
end;