#endif
