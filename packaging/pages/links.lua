-- Links from page to page: what is written as Markdown is read as HTML.
function Link(link)
  link.target = link.target:gsub("^([%w_-]+)%.md", "%1.html")
  return link
end
