SB.AppendLine("a = '?' and b = ? -- ?");
SB.AppendLine("/* ? */ c = ?,?");