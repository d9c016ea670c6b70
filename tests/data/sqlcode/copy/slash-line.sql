select 1;
/