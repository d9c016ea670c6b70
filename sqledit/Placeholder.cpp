// The SQL window's code-language and bind logic is being written.
