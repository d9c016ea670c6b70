my $stmt = 'a :1 ' 
         . 'b ' ;