StringBuffer strSQL = new StringBuffer();
strSQL.append("select 1 ");
