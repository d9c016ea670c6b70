StringBuffer strSQL = new StringBuffer();
strSQL.append("select 'it' as x, \"b\" as y ");
strSQL.append("  from t ");
strSQL.append(" where k = ? ");
