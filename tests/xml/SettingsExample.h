struct Settings
{
    CString font = L"Arial";
    double height = 2.5;
    int width = 800;
    bool isVisible = true;
};

// Writes the settings to the file, or reads them in read mode. Sections that the file lacks change nothing.
void ExchangeSettings(CXMLFile& file, Settings& settings)
{
    wchar_t root[] = L"Settings", text[] = L"Text", window[] = L"Window";
    wchar_t font[] = L"Font", height[] = L"Height", width[] = L"Width", visible[] = L"Visible";
    auto enter = [&file](const IXMLDOMNodePtr& parent, wchar_t* section) {
        file.m_pCurNode = parent;
        return file.m_pCurNode = file.SelectNode(section, false, !file.m_bReadMode);
    };
    file.LoadFile(); // makes an empty document where there is no file yet
    const IXMLDOMNodePtr top = enter(file.m_pXMLDoc, root);
    if (top && enter(top, text)) {
        file.CreateAttrib(font, settings.font);
        file.CreateAttrib(height, settings.height);
    }
    if (top && enter(top, window)) {
        file.CreateAttrib(width, settings.width);
        file.CreateAttrib(visible, settings.isVisible);
    }
    if (!file.m_bReadMode)
        file.SaveDocument();
}
