/* never closed
