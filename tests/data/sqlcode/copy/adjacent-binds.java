StringBuffer strSQL = new StringBuffer();
strSQL.append("?,? ");
