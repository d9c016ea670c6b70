StringBuilder SB = new StringBuilder();
SB.AppendLine("select 'it' as x, \"b\" as y ");
SB.AppendLine("  from t ");
SB.AppendLine(" where k = ? ");
