// The file dialog is being written.
