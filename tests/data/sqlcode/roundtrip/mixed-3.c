? :key : gap ? ( /* open :x ? '
