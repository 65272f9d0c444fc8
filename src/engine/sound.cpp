// Filled in by the drawing layer.
