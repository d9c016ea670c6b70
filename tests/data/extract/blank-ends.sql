select 1;

  [select a.@x,
    b -- note
  from t]  ;
select 2